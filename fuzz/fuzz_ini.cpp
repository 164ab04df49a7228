// An INI file of any bytes is read, written to and read again. The first three lines of an input are the section, the
// key and the value that are set, the rest is the file; "\x01" stands for a line end in the three.
#include "fuzz_target.h"

#include "foundation/ini_document.h"
#include "foundation/text.h"

#include <algorithm>
#include <map>
#include <string>

namespace ombrin::fuzz {
namespace {

using Values = std::map<std::pair<std::string, std::string>, std::string>; ///< by section and key as they are spelt

Values AllValues(const IniDocument& document) {
    Values values;
    for (const std::string& section : document.Sections())
        for (const std::string& key : document.Keys(section)) {
            const auto value = document.Value(section, key);
            Require(value.has_value(), "a key that is listed has a value");
            values[{section, key}] = *value;
        }
    return values;
}

std::string TakeName(std::string_view& input) {
    std::string name(TakeLine(input));
    std::replace(name.begin(), name.end(), '\x01', '\n');
    return name;
}

} // namespace

void Try(std::string_view input) {
    const std::string section = TakeName(input), key = TakeName(input), value = TakeName(input);
    IniDocument document(input);
    const std::string before = document.Text();
    const Values valuesBefore = AllValues(document);
    Require(IniDocument(before).Text() == before, "writing without a change settles after one time");
    Require(AllValues(IniDocument(before)) == valuesBefore, "values survive a rewrite");

    const bool held = IniDocument::CanHold(section, key, value);
    Require(document.SetValue(section, key, value) == held, "a value is set when it can be held");
    if (!held) {
        Require(document.Text() == before, "a refusal changes nothing");
        return;
    }
    const IniDocument again(document.Text());
    Require(again.Value(section, key) == value, "a value comes back as it was set");
    Require(again.Text() == document.Text(), "what is written is what is read");
    Values valuesAfter = AllValues(again);
    for (const auto& [name, old] : valuesBefore) {
        if (EqualIgnoringCase(name.first, section) && EqualIgnoringCase(name.second, key)) continue;
        const auto found = valuesAfter.find(name);
        Require(found != valuesAfter.end() && found->second == old, "other keys keep their values");
    }
    IniDocument repeated = again;
    Require(repeated.SetValue(section, key, value) && repeated.Text() == again.Text(), "setting twice changes nothing");
    repeated.Remove(section, key);
    Require(!repeated.Value(section, key), "what is removed is gone");
    std::erase_if(valuesAfter, [&](const auto& row) {
        return EqualIgnoringCase(row.first.first, section) && EqualIgnoringCase(row.first.second, key);
    });
    Require(AllValues(repeated) == valuesAfter, "and nothing else");
}

} // namespace ombrin::fuzz
