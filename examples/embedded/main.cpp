// Both controls in a program of one's own, a page each: the entry control offers a host's games, and the one that is
// chosen leads to the main control.
//
//     embedded --entry ADDRESS --host HOST --port PORT [--home DIR] [--name NAME] [--game GAME]
#include <QApplication>
#include <QCommandLineParser>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSocketNotifier>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <cstdio>
#include <ombrin/main_lobby.h>
#include <ombrin/qt/lobby_widget.h>

namespace {

struct Wishes {
    QString entry, host, port, home, name, game;
};

/// The games of a host. The library's machine runs on Qt's loop, by its descriptor.
class EntryPage : public QWidget {
public:
    EntryPage(const Wishes& wishes, std::function<void(const QString& userData)> then)
        : wishes(wishes), then(std::move(then)), machine({.home = wishes.home.toStdString()}), entry(machine),
          events(machine.Descriptor(), QSocketNotifier::Read) {
        auto* const layout = new QVBoxLayout(this);
        layout->addWidget(new QLabel(QString::fromStdString(entry.View().Read("Label1")->text)));
        layout->addWidget(games = new QListWidget);
        layout->addWidget(name = new QLineEdit(wishes.name));
        connect(&events, &QSocketNotifier::activated, this, [this] {
            for (int i = 0; i < 64 && machine.Step(); ++i) {
            }
        });
        connect(games, &QListWidget::itemActivated, this, [this] { Choose(games->currentRow()); });
        entry.View().Changed = [this](const std::string&) { ShowGames(); };
        entry.Show(wishes.entry.toStdString());
    }

private:
    void ShowGames() {
        const auto list = entry.View().Read("GameList");
        games->clear();
        for (const auto& row : list->rows) games->addItem(QString::fromStdString(row.front()));
        const auto wanted = games->findItems(wishes.game, Qt::MatchExactly);
        if (!wishes.game.isEmpty() && !wanted.isEmpty()) Choose(games->row(wanted.front()));
    }

    void Choose(int row) {
        if (name->text().isEmpty() || entry.View().Select("GameList", row)) return;
        const QString choice = QString::fromStdString(entry.m_GameLobby()); // GameListBox=<game>
        then(QStringList{name->text(), choice.section(QLatin1Char('='), 1), wishes.host, wishes.port}.join(
            QLatin1Char(';')));
    }

    const Wishes wishes;
    std::function<void(const QString&)> then;
    ombrin::host::Machine machine;
    ombrin::host::MainLobby entry;
    QSocketNotifier events;
    QListWidget* games = nullptr;
    QLineEdit* name = nullptr;
};

int Run(QApplication& application, const Wishes& wishes) {
    QStackedWidget pages;
    bool entered = false;
    ombrin::qt::LobbyWidget lobby(wishes.home);
    const auto end = [&] {
        lobby.RequestEnd();
        QCoreApplication::quit();
    };
    lobby.CloseClient = [&] { QTimer::singleShot(0, &application, end); };
    QObject::connect(&application, &QGuiApplication::lastWindowClosed, end); // also under a dialog that waits
    EntryPage entry(wishes, [&](const QString& userData) {
        if (std::exchange(entered, true)) return;
        pages.setCurrentWidget(&lobby);
        lobby.Start(userData);
        std::printf("%s\n", qPrintable(userData));
        std::fflush(stdout);
    });
    pages.addWidget(&entry);
    pages.addWidget(&lobby);
    pages.setCurrentWidget(&entry);
    pages.resize(1000, 800);
    pages.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QCommandLineParser parser;
    Wishes wishes;
    const std::pair<const char*, QString*> kOptions[] = {{"entry", &wishes.entry}, {"host", &wishes.host},
                                                         {"port", &wishes.port},   {"home", &wishes.home},
                                                         {"name", &wishes.name},   {"game", &wishes.game}};
    for (const auto& [name, value] : kOptions)
        parser.addOption({QLatin1String(name), QString(), QLatin1String("value")});
    parser.addHelpOption();
    parser.process(application);
    for (const auto& [name, value] : kOptions) *value = parser.value(QLatin1String(name));
    try {
        return Run(application, wishes);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "embedded: %s\n", error.what());
        return 1;
    }
}
