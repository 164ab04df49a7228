// What a skin puts on the view, slot by slot, and where it ends.
#include "support/played_client.h"

namespace ombrin::test {
namespace {

/// The prefixes of the buttons' keys, and the buttons, in the order in which they are put on.
// clang-format off
constexpr const char* kPrefixes[] = {"Enter", "Create", "SendLobby", "PM", "Logoff", "SendRoom", "Launch", "Destroy",
    "Configure", "Leave", "News", "Files", "Ladders", "Depot", "Players", "AddBuddy", "RemoveBuddy"};
constexpr Button View::*kButtons[] = {&View::Enter, &View::Create, &View::SendMain, &View::PM, &View::Logoff,
    &View::SendRoom, &View::Launch, &View::Destroy, &View::Configure, &View::Leave, &View::btnConfigurable1,
    &View::btnConfigurable2, &View::btnConfigurable3, &View::btnConfigurable4, &View::btnConfigurable5,
    &View::btnAddBuddy, &View::btnRemoveBuddy};
// clang-format on

struct Dressed : PlayedClient {
    void Lies(const std::string& path, const std::string& content = "BM") {
        world.files.AppendRecord("/home/app" + path, content, 1'000'000);
    }
    void Named(const std::string& key, const std::string& inStore, const std::string& inFile) {
        client.Store().SaveSetting("Skins", key, inStore);
        client.Inis().Write("av.ini", "Skin", key, inFile);
    }
    /// What no longer looks as built, in the order of the slots: "key=file", "flat", the labels' colours; and the
    /// error.
    std::string Worn() {
        HasChosen();
        Shows();
        std::string worn;
        const auto look = [&](const std::string& key, const Picture& picture) {
            if (picture.File() != nullptr) worn += key + "=" + picture.File()->Path() + " ";
        };
        look("BackgroundImage", view.OBSkin.Picture());
        for (std::size_t i = 0; i < std::size(kButtons); ++i) {
            const std::string prefix = kPrefixes[i];
            const ButtonPictures& pictures = (view.*kButtons[i]).Pictures();
            look(prefix + "Up", pictures.up);
            look(prefix + "Down", pictures.down);
            look(prefix + "Disabled", pictures.disabled);
            if ((view.*kButtons[i]).Flat()) worn += "flat ";
        }
        for (const Label* label : {&view.ChatFrame, &view.RoomBorder, &view.ConfigWarning})
            if (label->ForeColour()) worn += std::to_string(*label->ForeColour()) + " ";
        const std::string log = world.LogText(), before = "Error: occured in module LoadSkins().  Error number: ";
        const std::size_t error = log.find(before);
        if (error != std::string::npos) worn += "error " + std::to_string(std::stoi(log.substr(error + before.size())));
        return worn;
    }
};

TEST(Skin, EverySlotDressesItsControlAndAMissingFileEndsItThere) {
    std::vector<std::string> keys{"BackgroundImage"};
    for (const std::string prefix : kPrefixes)
        for (const char* suffix : {"Up", "Down", "Disabled"}) keys.push_back(prefix + suffix);
    for (const std::size_t missing : {std::size_t{0}, std::size_t{3}, std::size_t{4}, keys.size() - 1, keys.size()}) {
        Dressed player;
        player.Named("LabelTextColor", "255", "");
        std::string expected;
        for (std::size_t i = 0; i < keys.size(); ++i) {
            player.Named(keys[i], "", "\\" + keys[i] + ".bmp");
            if (i != missing) player.Lies("/" + keys[i] + ".bmp");
            if (i < missing) expected += keys[i] + "=/home/app\\" + keys[i] + ".bmp ";
            if (keys[i] == "EnterDisabled" && missing > 0) expected += "flat "; // before its file is looked for
        }
        EXPECT_EQ(player.Worn(), expected + (missing == keys.size() ? "255 255 255 " : "error 53"));
        EXPECT_EQ(player.Top(), "UsrNmPwIP") << "no box, and the logon follows";
    }
}

TEST(Skin, IsMixedFromStoreAndFileKeyByKey) {
    const std::string full = "\\" + std::string(122, 'n') + ".bmp"; // all that a value of the file can hold
    const struct {
        std::string key, inStore, inFile, worn;
    } kCases[] = {{"PMUp", "", "", ""},
                  {"EnterUp", "\\a.bmp", "", "EnterUp=/home/app\\a.bmp flat "},
                  {"EnterDown", "", "\\a.bmp", "EnterDown=/home/app\\a.bmp "},
                  {"SendLobbyUp", "\\a.bmp", "\\b.bmp", "SendLobbyUp=/home/app\\a.bmp "},
                  {"BackgroundImage", "", full + "cut", "BackgroundImage=/home/app" + full + " "},
                  {"BackgroundImage", full + "not", "", "error 53"},
                  {"BackgroundImage", "a.bmp", "", "error 53"}, // runs together with the folder's name
                  {"BackgroundImage", "\\plain.txt", "", "error 481"},
                  {"LabelTextColor", "", "16711680", "16711680 16711680 16711680 "},
                  {"LabelTextColor", "red", "255", "error 13"},
                  {"LabelTextColor", "2147483648", "", "error 6"}};
    for (const auto& row : kCases) {
        Dressed player;
        for (const char* file : {"/a.bmp", "/b.bmp", full.c_str()}) player.Lies(file);
        player.Lies("/plain.txt", "plain");
        player.Named(row.key, row.inStore, row.inFile);
        EXPECT_EQ(player.Worn(), row.worn) << row.key << " " << row.inStore;
    }
}

} // namespace
} // namespace ombrin::test
