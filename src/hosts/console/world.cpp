#include "hosts/console/world.h"

#include "foundation/text.h"
#include "hosts/console/arguments.h"

#include <map>
#include <nlohmann/json.hpp>
#include <optional>

namespace ombrin::console {

namespace {

using PingAnswers = std::map<std::string, Pings::Answer, std::less<>>;

std::deque<int> ConnectErrors(const Json& value) {
    if (!value.is_array()) throw Refused{"\"connect\" is no list"};
    std::deque<int> errors;
    for (const Json& error : value) {
        if (!error.is_number_integer()) throw Refused{"an error number is no whole number"};
        errors.push_back(error.get<int>());
    }
    return errors;
}

PingAnswers AnswersOfPings(const Json& value) {
    if (!value.is_object()) throw Refused{"\"ping\" is no object"};
    PingAnswers answers;
    for (const auto& [address, time] : value.items()) {
        const bool isTime = time.is_number_integer() && time >= 0 && time <= 1'000'000;
        if (!isTime && !time.is_null()) throw Refused{"a ping's time is no whole number of milliseconds, nor null"};
        answers[address] = isTime ? Pings::Answer(time.get<std::int32_t>()) : std::nullopt;
    }
    return answers;
}

std::vector<std::string> Roots(const Json& value, const CodePage& page) {
    if (!value.is_array()) throw Refused{"\"drives\" is no list"};
    std::vector<std::string> roots;
    for (const Json& root : value) {
        const auto text = root.is_string() ? page.FromUtf8(root.get<std::string>()) : std::nullopt;
        if (!text || text->empty()) throw Refused{"a drive is no path"};
        roots.push_back(*text);
    }
    return roots;
}

std::deque<bool> AnswersOfStarts(const Json& value) {
    std::deque<bool> answers;
    for (const Json& answer : value.is_array() ? value : Json::array({value})) {
        if (answer != "ok" && answer != "fail") throw Refused{"a start is \"ok\" or \"fail\""};
        answers.push_back(answer == "ok");
    }
    return answers;
}

} // namespace

void ChangeWorld(World& world, const Arguments& a) {
    std::optional<std::deque<int>> connect;
    std::optional<PingAnswers> pings;
    std::optional<std::deque<bool>> starts;
    std::optional<std::vector<std::string>> drives;
    std::optional<int> open;
    std::optional<bool> directPlay;
    std::optional<bool> registers;
    for (const auto& [field, value] : a.json.items()) {
        if (field == "do") continue;
        if (field == "open" && value.is_number_integer())
            open = value.get<int>();
        else if (field == "directplay" && value.is_boolean())
            directPlay = value.get<bool>();
        else if (field == "register" && value.is_boolean())
            registers = value.get<bool>();
        else if (field == "connect")
            connect = ConnectErrors(value);
        else if (field == "ping")
            pings = AnswersOfPings(value);
        else if (field == "drives")
            drives = Roots(value, a.page);
        else if (field == "shell")
            starts = AnswersOfStarts(value);
        else
            throw Refused{Join("the world has no such \"", field, "\"")};
    }
    if (open) world.opener.result = *open;
    if (directPlay) world.directPlay.present = *directPlay;
    if (connect) world.network.connectErrors = *connect;
    if (pings) world.pings.answers = *pings;
    if (starts) world.processes.starts = *starts;
    if (drives) world.disks.roots = *drives;
    if (registers) world.components.works = *registers;
}

} // namespace ombrin::console
