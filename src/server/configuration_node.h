// A place in a JSON document: reads what stands there and knows how to name itself when that is a mistake. The
// document itself is hidden, so that its library stays out of the headers.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace ombrin::server {

class ConfigurationNode {
public:
    struct Document;

    static ConfigurationNode Parse(std::string_view json);

    [[noreturn]] void Fail(std::string_view what) const;
    bool IsText() const;

    /// An object with no other members than these.
    void ExpectMembers(std::initializer_list<std::string_view> known) const;
    std::optional<ConfigurationNode> Find(std::string_view member) const;
    ConfigurationNode Member(std::string_view member) const;
    /// Each element of a list, in its order.
    void ForEach(const std::function<void(const ConfigurationNode&)>& visit) const;

    /// In the client's code page: without control characters, outer blanks and any of the forbidden characters, and
    /// not longer than told. May be empty.
    std::string Text(std::size_t longest, std::string_view forbidden) const;
    std::string FilledText(std::size_t longest, std::string_view forbidden) const;
    std::int64_t Whole(std::int64_t least, std::int64_t most) const;
    double Number(double least, double most) const;
    bool YesOrNo() const;

private:
    ConfigurationNode(std::shared_ptr<const Document> document, const void* value, std::string place);

    std::shared_ptr<const Document> document;
    const void* value;
    std::string place;
};

} // namespace ombrin::server
