// The language file that is shipped, against the tables of the program.
#include "foundation/ini_document.h"
#include "language_stage.h"
#include "session/names.h"
#include "support/played_client.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <gmock/gmock.h>
#include <iterator>
#include <set>
#include <sstream>

namespace ombrin {
namespace {

std::string FileText() {
    std::ifstream file(OMBRIN_LANGUAGE_FILE, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class LanguageFile : public testing::Test, protected LanguageStage {
protected:
    /// The languages with a section: all on offer but English.
    std::vector<std::string> Languages() const {
        std::vector<std::string> names;
        for (const std::string& key : document.Keys("Languages"))
            if (const auto name = document.Value("Languages", key); name != "English") names.push_back(*name);
        return names;
    }
    std::string Text(std::string_view name, std::string_view key) const {
        return document.Value(name, key).value_or("");
    }

    const std::string content = FileText();
    const IniDocument document{content};
};

TEST_F(LanguageFile, ItOffersEnglishAndTheLanguagesThatItHoldsAndChoosesNone) {
    auto sections = Languages();
    EXPECT_THAT(sections, testing::ElementsAre("Deutsch", "Fran\347ais"));
    EXPECT_EQ(Text("Languages", "Language1"), "English");
    sections.insert(sections.begin(), {"CurrentLanguage", "Languages"});
    EXPECT_EQ(document.Sections(), sections);
    EXPECT_THAT(document.Keys("CurrentLanguage"), testing::IsEmpty());
}

TEST_F(LanguageFile, EachLanguageHasEveryTextOfTheProgramAndNoOther) {
    std::set<std::string, std::less<>> keys(kWordKeys.begin(), kWordKeys.end());
    for (const LanguageText& row : kMessageTexts) keys.emplace(row.key);
    for (const CaptionKey& row : kCaptionKeys) keys.emplace(row.key);
    for (const std::string& name : Languages()) {
        const auto held = document.Keys(name);
        EXPECT_EQ((std::set<std::string, std::less<>>(held.begin(), held.end())), keys) << name;
        EXPECT_EQ(held.size(), keys.size()) << name << " has a key twice";
        for (const std::string& key : held) {
            const std::string text = Text(name, key);
            EXPECT_NE(text, "") << name << ": " << key;
            EXPECT_LE(text.size(), IniFiles::kIniValueLength) << name << ": " << key;
        }
    }
}

TEST_F(LanguageFile, ItsTextsAreInTheCodePage) {
    for (const unsigned char c : content) {
        const bool open = c == 0x81 || c == 0x8D || c == 0x8F || c == 0x90 || c == 0x9D; // the gaps of the page
        ASSERT_TRUE(c == '\n' || c == '\r' || (c >= 32 && c != 127 && !open)) << "byte " << static_cast<int>(c);
    }
}

TEST_F(LanguageFile, NoTextHasBlanksAroundItOrInItsQuotes) {
    std::istringstream lines(content);
    for (std::string line; std::getline(lines, line);) {
        if (line.ends_with('\r')) line.pop_back();
        if (line.starts_with(';')) continue;
        constexpr std::string_view kOuter = " \t\"'\xA0";
        const std::size_t equals = line.find('=');
        EXPECT_FALSE(!line.empty() && kOuter.find(line.back()) != std::string_view::npos) << line;
        EXPECT_FALSE(equals + 1 < line.size() && kOuter.find(line[equals + 1]) != std::string_view::npos) << line;
    }
}

TEST_F(LanguageFile, WhatMayNotStandInANameIsListedInFull) {
    const auto sorted = [](std::string_view characters) {
        std::string all(characters);
        std::sort(all.begin(), all.end());
        return all;
    };
    for (const std::string& name : Languages())
        for (const char* key : {"Error9", "Error10", "BuddyNamesContain"}) {
            const std::string text = Text(name, key);
            EXPECT_EQ(sorted(std::string_view(text).substr(text.find('`'))), sorted(kForbiddenCharacters))
                << name << ": " << key;
        }
}

TEST_F(LanguageFile, NoMenuHasTwoEntriesUnderOneLetter) {
    auto languages = Languages();
    languages.emplace_back("English");
    for (const std::string& name : languages) {
        View view(loop);
        Lies(content);
        language.SetFLLanguage(name);
        for (Menu* menu : {&view.UserMenu, &view.RoomMenu, &view.RoomUsersMenu, &view.GamesMenu, &view.AllUsersMenu,
                           &view.BuddyMenu}) {
            language.SetFLOnMenu(*menu);
            std::set<int> letters;
            for (const MenuEntry* entry : menu->Entries()) {
                const std::string caption = entry->Caption() + " ";
                const std::size_t at = caption.find('&');
                if (at == std::string::npos) continue;
                const auto letter = static_cast<unsigned char>(caption[at + 1]);
                EXPECT_TRUE(std::isalpha(letter) != 0 && letters.insert(std::tolower(letter)).second)
                    << name << ", " << menu->Name() << ": " << caption;
            }
        }
    }
}

TEST_F(LanguageFile, EveryCaptionBelongsToAControlOfItsPlace) {
    test::PlayedClient player;
    const View& view = player.view;
    for (const CaptionKey& row : kCaptionKeys) {
        SCOPED_TRACE(std::string(row.place) + "." + std::string(row.control));
        if (const auto* menu = dynamic_cast<const Menu*>(view.Find(row.place))) {
            EXPECT_THAT(menu->Entries(), testing::Contains(view.Find(row.control)));
            continue;
        }
        const Container* place = row.place == view.Name() ? &view : nullptr;
        for (const Form* form : player.forms.All())
            if (form->Name() == row.place) place = form;
        ASSERT_NE(place, nullptr);
        EXPECT_TRUE(row.control.empty() || dynamic_cast<const Captioned*>(place->Find(row.control)) != nullptr);
    }
}

} // namespace
} // namespace ombrin
