#include "hosts/desktop/own_texts.h"

namespace ombrin::desktop {

namespace {

struct Row {
    Own text;
    const char *english, *deutsch, *francais;
};

constexpr Row kRows[] = {
    {Own::Waiting, "Waiting for the server…", "Warten auf den Server …", "En attente du serveur…"},
    {Own::Creating, "Creating the room…", "Raum wird erstellt …", "Création du salon…"},
    {Own::Entering, "Entering the room…", "Raum wird betreten …", "Entrée dans le salon…"},
    {Own::Leaving, "Leaving the room…", "Raum wird verlassen …", "Sortie du salon…"},
    {Own::Destroying, "Closing the room…", "Raum wird aufgelöst …", "Fermeture du salon…"},
    {Own::Launching, "Starting the game…", "Spiel wird gestartet …", "Lancement du jeu…"},
    {Own::UpdateServer, "Connecting to the update server…", "Verbindung zum Update-Server wird hergestellt …",
     "Connexion au serveur de mise à jour…"},
    {Own::UpdateLeft, "The update could not be finished. Close this window and start Ombrin again.",
     "Das Update konnte nicht abgeschlossen werden. Schließen Sie das Fenster und starten Sie Ombrin neu.",
     "La mise à jour n'a pas pu être terminée. Fermez cette fenêtre et relancez Ombrin."},
    {Own::InARoom, "In a room", "In einem Raum", "Dans un salon"},
    {Own::InAGame, "In a game", "In einem Spiel", "En jeu"},
    {Own::GameRuns, "A game is running", "Ein Spiel läuft", "Une partie est en cours"},
    {Own::NeedsPassword, "Needs a password", "Mit Passwort", "Avec mot de passe"},
    {Own::FastAnswers, "Fast connection", "Schnelle Verbindung", "Connexion rapide"},
    {Own::MiddlingAnswers, "Middling connection", "Mittlere Verbindung", "Connexion moyenne"},
    {Own::SlowAnswers, "Slow connection", "Langsame Verbindung", "Connexion lente"},
    {Own::YourMessage, "Your message", "Ihre Nachricht", "Votre message"},
    {Own::CannotBeSent, "This character cannot be sent to the server.",
     "Dieses Zeichen kann nicht an den Server gesendet werden.", "Ce caractère ne peut pas être envoyé au serveur."},
    {Own::OpenLink, "Open a link", "Link öffnen", "Ouvrir un lien"},
    {Own::OpenThisAddress, "Open this address in your browser?", "Diese Adresse im Browser öffnen?",
     "Ouvrir cette adresse dans votre navigateur ?"},
    {Own::ChooseFile, "Choose a file", "Datei wählen", "Choisir un fichier"},
    {Own::ChooseColour, "Choose a color", "Farbe wählen", "Choisir une couleur"},
    {Own::Ok, "OK", "OK", "OK"},
    {Own::Cancel, "Cancel", "Abbrechen", "Annuler"},
    {Own::Open, "&Open", "Ö&ffnen", "&Ouvrir"},
    {Own::Yes, "&Yes", "&Ja", "&Oui"},
    {Own::No, "&No", "&Nein", "&Non"},
    {Own::Refused, "%1 refuses the connection on port %2. Is the server running, and is the port right?",
     "%1 lehnt die Verbindung auf Port %2 ab. Läuft der Server, und stimmt der Port?",
     "%1 refuse la connexion sur le port %2. Le serveur est-il démarré, et le port est-il le bon ?"},
    {Own::UnknownHost, "There is no host named %1. Check its spelling, and whether this machine is on the network.",
     "Es gibt keinen Rechner namens %1. Stimmt die Schreibweise, und ist dieser Rechner im Netz?",
     "Aucune machine ne s'appelle %1. Vérifiez le nom, et que cet ordinateur est connecté au réseau."},
    {Own::Unreachable, "%1 cannot be reached from here. Check this machine's network.",
     "%1 ist von hier aus nicht erreichbar. Ist dieser Rechner im Netz?",
     "%1 est inaccessible d'ici. Vérifiez le réseau de cet ordinateur."},
    {Own::TimedOut, "%1 does not answer. The server may be down, or a firewall may stand in the way.",
     "%1 antwortet nicht. Der Server ist vielleicht aus, oder eine Firewall steht im Weg.",
     "%1 ne répond pas. Le serveur est peut-être arrêté, ou un pare-feu bloque le passage."},
    {Own::ConnectionLost, "The connection to the server is lost.", "Die Verbindung zum Server ist abgebrochen.",
     "La connexion au serveur est perdue."},
    {Own::NoAnswer, "The server does not answer.", "Der Server antwortet nicht.", "Le serveur ne répond pas."},
    {Own::LogOnAgain, "Log on again", "Neu anmelden", "Se reconnecter"},
    {Own::HideBar, "Hide", "Ausblenden", "Masquer"},
    {Own::MessageFrom, "Private message from %1", "Private Nachricht von %1", "Message privé de %1"},
    {Own::BuddyHere, "%1 is here", "%1 ist da", "%1 est là"},
    {Own::InLobby, "In the lobby %1", "In der Lobby %1", "Dans le lobby %1"},
    {Own::ShowWindow, "Show", "Anzeigen", "Afficher"},
    {Own::News, "News", "Neues", "Actualités"},
    {Own::Files, "Files", "Dateien", "Fichiers"},
    {Own::Ladders, "Ladders", "Ranglisten", "Classements"},
    {Own::Depot, "Depot", "Depot", "Dépôt"},
    {Own::Players, "Players", "Spieler", "Joueurs"},
    {Own::AddBuddy, "Add Buddy", "Freund hinzufügen", "Ajouter un ami"},
    {Own::RemoveBuddy, "Remove Buddy", "Freund entfernen", "Retirer un ami"},
    {Own::SkinsOfOmbrin, "Skins of Ombrin", "Skins von Ombrin", "Thèmes d'Ombrin"},
    {Own::UseSkin, "&Use", "&Verwenden", "&Utiliser"},
    {Own::BuiltInLook, "&Built-in look", "&Eingebautes Aussehen", "Apparence &d'origine"},
    {Own::Close, "&Close", "&Schließen", "&Fermer"},
    {Own::SkinInUse, "%1 (in use)", "%1 (in Gebrauch)", "%1 (utilisé)"},
    {Own::AtNextStart, "Ombrin shows the change at its next start.", "Ombrin zeigt die Änderung beim nächsten Start.",
     "Ombrin montrera ce changement à son prochain démarrage."},
    {Own::NoSkins, "No skins are installed.", "Es sind keine Skins installiert.", "Aucun thème n'est installé."},
};

std::function<std::string()>& Current() {
    static std::function<std::string()> current = [] { return std::string(); };
    return current;
}

} // namespace

void SetOwnLanguage(std::function<std::string()> current) { Current() = std::move(current); }

QString Say(Own text) {
    const std::string language = Current()();
    for (const Row& row : kRows) {
        if (row.text != text) continue;
        const char* said = language == "Deutsch" ? row.deutsch : language == "Français" ? row.francais : row.english;
        return QString::fromUtf8(said);
    }
    return {};
}

} // namespace ombrin::desktop
