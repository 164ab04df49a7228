// A fresh client's language file, and the one that a client has.
#include "platform/posix/language_file.h"

#include "../foundation/raised.h"
#include "../support/scratch.h"
#include "foundation/ini_files.h"

#include <fstream>
#include <gmock/gmock.h>

namespace ombrin {
namespace {

struct Fresh : testing::Test {
    Scratch scratch;
    Places places{scratch / "home"};
    PosixFiles files{CodePage::Usual()};

    Fresh() {
        for (const char* folder : {"home/windows", "share/windows"})
            std::filesystem::create_directories(scratch / folder);
    }
    void Has(const std::string& name, const std::string& text) { std::ofstream(scratch / name) << text; }
    void Place() { PlaceLanguageFile(scratch / "share", places, files); }
    std::string Language() { return IniFiles(files, places.WindowsDirectory()).Read("AVfLang.ini", "A", "Word"); }
};

TEST_F(Fresh, GetsTheFileOfTheShareOnceAndKeepsItsOwn) {
    Place();
    EXPECT_EQ(Language(), "") << "without a share";
    Has("share/windows/AVfLang.ini", "[A]\r\nWord=Raum \xE4\r\n");
    Place();
    EXPECT_EQ(files.Read(places.WindowsDirectory() + "/AVfLang.ini"), "[A]\r\nWord=Raum \xE4\r\n");
    for (const char* name : {"home/windows/AVfLang.ini", "home/windows/avflang.INI"}) {
        std::filesystem::remove(scratch / "home/windows/AVfLang.ini");
        Has(name, "[A]\nWord=mine\n");
        Place();
        EXPECT_EQ(Language(), "mine") << name;
    }
}

TEST_F(Fresh, IsToldWhenItCannotBePlaced) {
    Has("share/windows/AVfLang.ini", "[A]\n");
    places.root = scratch / "nowhere";
    EXPECT_EQ(Raised([&] { Place(); }), 76);
}

} // namespace
} // namespace ombrin
