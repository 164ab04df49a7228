// The library as a host has it: nothing but its public headers.
#include "../support/scratch.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <ombrin/cls_direct_play.h>
#include <ombrin/factory.h>
#include <ombrin/main_lobby.h>

namespace ombrin::host {

namespace {

using testing::ElementsAre;

struct Library : testing::Test {
    Library() { setenv("OMBRIN_HOME", home.path.c_str(), 1); }

    Scratch home;
};

Guid GuidOf(const std::string& text) {
    Guid guid;
    EXPECT_TRUE(ToGuid(text, guid)) << text;
    return guid;
}

int NumberOf(const std::function<void()>& raises) {
    try {
        raises();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

} // namespace

TEST_F(Library, RegistersItsClassesAndTakesThemOutAgain) {
    const auto registered = [](const std::string& key) {
        Machine machine;
        GameLobby lobby(machine);
        GameLobby::RegistryValue value;
        const int number = NumberOf([&] { lobby.QueryValueEx("HKEY_CLASSES_ROOT\\" + key, "", value); });
        return number == 0 ? std::get<std::string>(value) : "error " + std::to_string(number);
    };
    ASSERT_EQ(DllRegisterServer(), kOk);
    ASSERT_EQ(Classes().size(), 3u);
    for (const ClassDescription& c : Classes()) {
        EXPECT_EQ(registered("CLSID\\" + c.identifier), "Ombrin." + c.name);
        EXPECT_EQ(registered("CLSID\\" + c.identifier + "\\TypeLib"), LibraryIdentifier());
        EXPECT_EQ(registered("Ombrin." + c.name + "\\Clsid"), c.identifier);
        EXPECT_EQ(registered("Interface\\" + c.interfaceIdentifier), c.interfaceName);
        EXPECT_TRUE(std::filesystem::exists(registered("CLSID\\" + c.identifier + "\\InprocServer32")));
    }
    {
        Machine machine;
        GameLobby(machine).SetValueEx("HKEY_CLASSES_ROOT\\CLSID\\{Other}", "", 1, "other");
    }
    ASSERT_EQ(DllUnregisterServer(), kOk);
    for (const ClassDescription& c : Classes())
        for (const std::string& key : {"CLSID\\" + c.identifier, "Ombrin." + c.name + "\\Clsid"})
            EXPECT_EQ(registered(key), "error 5") << key;
    EXPECT_EQ(registered("CLSID\\{Other}"), "other");
    setenv("OMBRIN_HOME", "/dev/null/nowhere", 1);
    EXPECT_EQ(DllRegisterServer(), kNotRegistered);
}

TEST_F(Library, HandsOutFactoriesAndKnowsWhenItMayGo) {
    Machine machine;
    EXPECT_EQ(DllCanUnloadNow(), kOk);
    GameLobby lobby(machine);
    for (const ClassDescription& c : Classes()) {
        const Guid identifier = GuidOf(c.identifier);
        void* handed = nullptr;
        ASSERT_EQ(DllGetClassObject(&identifier, &kClassFactory, &handed), kOk);
        auto* const factory = static_cast<ClassFactory*>(handed);
        std::unique_ptr<Object> object;
        EXPECT_EQ(factory->CreateInstance(machine, object), kOk);
        EXPECT_EQ(object->ClassName(), c.name);
        EXPECT_EQ(Create(machine, c.identifier)->ClassName(), c.name);
        EXPECT_EQ(Create(machine, c.name)->ClassName(), c.name);
        EXPECT_EQ(factory->Release(), 0u);
    }
    const Guid other = GuidOf("{00000000-1111-2222-3333-444444444444}"), known = GuidOf(Classes()[0].identifier);
    void* handed = &machine;
    EXPECT_EQ(DllGetClassObject(&other, &kClassFactory, &handed), kClassNotAvailable);
    EXPECT_EQ(DllGetClassObject(&known, &other, &handed), kNoInterface);
    EXPECT_EQ(handed, nullptr);
    EXPECT_EQ(NumberOf([&] { Create(machine, "Nothing"); }), 429);
    EXPECT_EQ(DllCanUnloadNow(), kFalse) << "the lobby is there";
}

TEST_F(Library, AnIdentifierIsReadToTheLetter) {
    Guid guid;
    for (const char* bad : {"", "{}", "{FD2DA9C1-FCD1-4985-8866-1EE144CF88F5", "FD2DA9C1-FCD1-4985-8866-1EE144CF88FG",
                            "FD2DA9C1xFCD1-4985-8866-1EE144CF88F5", "-D2DA9C1-FCD1-4985-8866-1EE144CF88F5"})
        EXPECT_FALSE(ToGuid(bad, guid)) << bad;
    const Guid library = GuidOf(LibraryIdentifier());
    EXPECT_EQ(library.a, 0xFD2DA9C1u);
    EXPECT_EQ(library.d[7], 0xF5);
}

TEST_F(Library, AHostAnswersTheDialogsAndHearsThatItMustEnd) {
    Machine machine;
    GameLobby lobby(machine);
    std::vector<std::string> shown;
    bool closed = false;
    lobby.CloseClient = [&] { closed = true; };
    lobby.View().FormShown = [&](const std::string& form) {
        shown.push_back(form);
        EXPECT_TRUE(lobby.View().Click("Create")) << "behind a dialog";
        if (form == "ChooseLanguage") {
            EXPECT_FALSE(lobby.View().Click("ChooseLanguage.OKButton"));
        }
        if (form != "UsrNmPwIP") return;
        EXPECT_FALSE(lobby.View().Type("UsrNmPwIP.LogonName", "Zo\xC3\xAB"));
        EXPECT_EQ(NumberOf([&] { lobby.View().Type("UsrNmPwIP.LogonName", "\xD0\x96"); }), 5) << "not in its page";
        EXPECT_EQ(lobby.View().Read("UsrNmPwIP.LogonName")->text, "Zo\xC3\xAB");
        EXPECT_FALSE(lobby.View().Close("UsrNmPwIP"));
    };
    lobby.Show();
    EXPECT_THAT(shown, ElementsAre("ChooseLanguage", "UsrNmPwIP"));
    EXPECT_TRUE(closed);
}

TEST_F(Library, TheEndLeadsOutOfEveryDialogAlsoInTheLoopOfTheHost) {
    int turns = 0;
    Machine* own = nullptr;
    Machine usual, stepped({.runUntil = [&](const bool&ended) {
        for (; !ended && turns < 1'000'000; ++turns) own->Step();
    }});
    own = &stepped;
    for (Machine* machine : {&usual, &stepped}) {
        GameLobby lobby(*machine);
        lobby.View().FormShown = [&](const std::string&) { machine->RequestEnd(); };
        lobby.Show();
        EXPECT_TRUE(machine->Ending());
        EXPECT_THAT(lobby.View().Forms(), ElementsAre());
        lobby.Configure_Click(); // waits no more
    }
    EXPECT_GT(turns, 0);
    usual.Run();
}

TEST_F(Library, TheControlsKeepWhatAContainerStores) {
    Machine machine;
    MainLobby entry(machine);
    std::vector<std::string> changed;
    entry.PropertyChanged = [&](std::string_view name) { changed.emplace_back(name); };
    entry.SetFont("S\xC3\xA4ns");
    entry.SetBytesReceived(7);
    EXPECT_THAT(changed, ElementsAre("Font", "BytesReceived"));
    Control::Bag bag;
    entry.WriteProperties(bag);
    MainLobby other(machine);
    other.ReadProperties(bag);
    EXPECT_EQ(other.Font(), "S\xC3\xA4ns");
    EXPECT_EQ(other.BytesReceived(), 7);
    EXPECT_THAT(entry.View().Names(), ElementsAre("GameList", "Label1"));
    EXPECT_TRUE(entry.View().Select("GameList", 0)) << "it is not shown";
}

} // namespace ombrin::host
