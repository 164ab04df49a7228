#include "server/configuration_node.h"

#include "foundation/code_page.h"
#include "foundation/text.h"
#include "server/configuration.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>

namespace ombrin::server {

using Json = nlohmann::json;

struct ConfigurationNode::Document {
    Json root;
};

namespace {

const Json& As(const void* value) { return *static_cast<const Json*>(value); }

/// A second member of the same name would silently hide the first.
class DuplicateFinder {
public:
    bool operator()(int /*depth*/, Json::parse_event_t event, Json& parsed) {
        if (event == Json::parse_event_t::object_start) open.emplace_back();
        if (event == Json::parse_event_t::object_end) open.pop_back();
        if (event != Json::parse_event_t::key) return true;
        const auto name = parsed.get<std::string>();
        if (!open.back().insert(name).second)
            throw ConfigurationError(Join("member \"", name, "\" stands there twice"));
        return true;
    }

private:
    std::vector<std::set<std::string>> open;
};

} // namespace

ConfigurationNode::ConfigurationNode(std::shared_ptr<const Document> document, const void* value, std::string place)
    : document(std::move(document)), value(value), place(std::move(place)) {}

ConfigurationNode ConfigurationNode::Parse(std::string_view json) {
    try {
        auto document = std::make_shared<Document>(Document{Json::parse(json, DuplicateFinder())});
        const Json& root = document->root;
        return ConfigurationNode(std::move(document), &root, "");
    } catch (const Json::exception& problem) {
        throw ConfigurationError(problem.what());
    }
}

void ConfigurationNode::Fail(std::string_view what) const {
    throw ConfigurationError(Join(place.empty() ? "/" : place, ": ", what));
}

bool ConfigurationNode::IsText() const { return As(value).is_string(); }

void ConfigurationNode::ExpectMembers(std::initializer_list<std::string_view> known) const {
    if (!As(value).is_object()) Fail("must be an object");
    for (const auto& [name, member] : As(value).items())
        if (std::find(known.begin(), known.end(), name) == known.end()) Fail(Join("unknown member \"", name, "\""));
}

std::optional<ConfigurationNode> ConfigurationNode::Find(std::string_view member) const {
    if (!As(value).is_object()) Fail("must be an object");
    const auto found = As(value).find(std::string(member));
    if (found == As(value).end()) return std::nullopt;
    return ConfigurationNode(document, &*found, Join(place, "/", member));
}

ConfigurationNode ConfigurationNode::Member(std::string_view member) const {
    const auto found = Find(member);
    if (!found) Fail(Join("member \"", member, "\" is missing"));
    return *found;
}

void ConfigurationNode::ForEach(const std::function<void(const ConfigurationNode&)>& visit) const {
    if (!As(value).is_array()) Fail("must be a list");
    std::size_t index = 0;
    for (const Json& element : As(value))
        visit(ConfigurationNode(document, &element, Join(place, "/", std::to_string(index++))));
}

std::string ConfigurationNode::Text(std::size_t longest, std::string_view forbidden) const {
    if (!As(value).is_string()) Fail("must be a text");
    const auto text = CodePage::Usual().FromUtf8(As(value).get_ref<const std::string&>());
    if (!text) Fail("has a character that the clients' code page cannot hold");
    if (text->size() > longest) Fail(Join("is longer than ", std::to_string(longest), " characters"));
    if (Trim(*text) != *text) Fail("has blanks at an end");
    if (std::any_of(text->begin(), text->end(), [](unsigned char c) { return c < 32 || c == 127; }))
        Fail("has a control character");
    if (const char bad = FirstOf(*text, forbidden)) Fail(Join("must not hold \"", std::string_view(&bad, 1), "\""));
    return *text;
}

std::string ConfigurationNode::FilledText(std::size_t longest, std::string_view forbidden) const {
    std::string text = Text(longest, forbidden);
    if (text.empty()) Fail("must not be empty");
    return text;
}

std::int64_t ConfigurationNode::Whole(std::int64_t least, std::int64_t most) const {
    if (As(value).is_number_integer() &&
        (!As(value).is_number_unsigned() || As(value).get<std::uint64_t>() <= INT64_MAX)) {
        const auto number = As(value).get<std::int64_t>();
        if (number >= least && number <= most) return number;
    }
    Fail(Join("must be a whole number from ", std::to_string(least), " to ", std::to_string(most)));
}

double ConfigurationNode::Number(double least, double most) const {
    if (As(value).is_number()) {
        const auto number = As(value).get<double>();
        if (number >= least && number <= most) return number;
    }
    Fail(Join("must be a number from ", std::to_string(least), " to ", std::to_string(most)));
}

bool ConfigurationNode::YesOrNo() const {
    if (!As(value).is_boolean()) Fail("must be true or false");
    return As(value).get<bool>();
}

} // namespace ombrin::server
