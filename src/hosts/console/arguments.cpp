#include "hosts/console/arguments.h"

#include "foundation/text.h"

#include <nlohmann/json.hpp>

namespace ombrin::console {

bool Arguments::Has(const char* field) const { return json.contains(field); }

const Json& Arguments::Field(const char* field) const {
    if (!Has(field)) throw Refused{Join("needs \"", field, "\"")};
    return json.at(field);
}

std::string Arguments::Held(const Json& value, const char* field) const {
    if (!value.is_string()) throw Refused{Join("needs a text in \"", field, "\"")};
    const auto text = page.FromUtf8(value.get_ref<const std::string&>());
    if (!text) throw Refused{Join("\"", field, "\" has a character that the code page cannot hold")};
    return *text;
}

std::string Arguments::Text(const char* field) const { return Held(Field(field), field); }

long Arguments::Number(const char* field) const {
    const Json& value = Field(field);
    if (!value.is_number_integer()) throw Refused{Join("needs a whole number in \"", field, "\"")};
    if (value.is_number_unsigned() && value.get<std::uint64_t>() > INT32_MAX && field != std::string_view("ms"))
        throw Refused{"too large a number"};
    return value.get<long>();
}

bool Arguments::Truth(const char* field) const {
    const Json& value = Field(field);
    if (!value.is_boolean()) throw Refused{Join("needs true or false in \"", field, "\"")};
    return value.get<bool>();
}

Milliseconds Arguments::Length(const char* field) const {
    constexpr long kLongest = 1000L * 3600 * 24 * 366;
    const long length = Number(field);
    if (length < 0 || length > kLongest) throw Refused{"no such time"};
    return Milliseconds(length);
}

} // namespace ombrin::console
