#include "hosts/console/commands.h"

#include "foundation/runtime_error.h"
#include "foundation/text.h"
#include "hosts/console/arguments.h"
#include "hosts/console/members.h"
#include "hosts/console/reading.h"

#include <nlohmann/json.hpp>

namespace ombrin::console {

namespace {

void Check(const Refusal& refusal) {
    if (refusal) throw Refused{*refusal};
}

} // namespace

struct Commands::Table {
    using A = const Arguments&;

    struct Row {
        std::string_view name;
        Json (*run)(Commands&, A);
    };

    static Form* FormNamed(Commands& c, std::string_view name) {
        const auto& visible = c.client.Stack().Visible();
        for (auto form = visible.rbegin(); form != visible.rend(); ++form)
            if ((*form)->Name() == name) return *form;
        for (Form* form : c.client.Forms().All())
            if (form->Name() == name) return form;
        return nullptr;
    }

    static Control* ControlNamed(Commands& c, const std::string& name) {
        const std::size_t point = name.find('.');
        if (point == std::string::npos) return c.client.MainView().Find(name);
        if (name.substr(0, point) == c.entry.MainView().Name()) return c.entry.MainView().Find(name.substr(point + 1));
        const Form* form = FormNamed(c, name.substr(0, point));
        return form == nullptr ? nullptr : form->Find(name.substr(point + 1));
    }

    static Control& At(Commands& c, A a) {
        Control* control = ControlNamed(c, a.Text("at"));
        if (control == nullptr) throw Refused{"no such control"};
        return *control;
    }

    /// The door of the control that it belongs to.
    static UserInput& Door(Commands& c, const Control& control) {
        return &control.Parent() == &c.entry.MainView() ? c.entry.Input() : c.client.Input();
    }

    template <class Kind>
    static Kind& AtKind(Commands& c, A a, const char* what) {
        auto* control = dynamic_cast<Kind*>(&At(c, a));
        if (control == nullptr) throw Refused{Join("is no ", what)};
        return *control;
    }

    static Json Show(Commands& c, A a) {
        const std::string control = a.Has("control") ? a.Text("control") : "GameLobby";
        if (control != "GameLobby" && control != "MainLobby") throw Refused{"no such control"};
        const auto given = [&](const char* field) {
            return a.Has(field) ? std::optional(a.Text(field)) : std::nullopt;
        };
        const auto userData = given("userData"), ipAddress = given("ipAddress");
        if (control == "MainLobby" ? userData.has_value() : ipAddress.has_value())
            throw Refused{"this control has no such property"};
        if (c.shown != Shown::Nothing) throw Refused{"shown already"};
        if (control == "MainLobby") {
            c.shown = Shown::MainLobby;
            c.entry.UserControl_ReadProperties({{"IPAddress", ipAddress.value_or("")}});
            c.entry.UserControl_Show();
        } else {
            c.shown = Shown::GameLobby;
            c.client.UserControl_Show(userData);
        }
        return {};
    }

    static Json Click(Commands& c, A a) {
        Control& control = At(c, a);
        if (!a.Has("row")) return Check(Door(c, control).Click(control)), Json{};
        auto& grid = AtKind<FlexGrid>(c, a, "grid");
        const long row = a.Number("row"), column = a.Number("column", 0);
        if (row < 0 || row >= grid.Rows() || column < 0 || column >= FlexGrid::kColumns) throw Refused{"no such cell"};
        Check(c.client.Input().ClickCell(grid, static_cast<int>(row), static_cast<int>(column)));
        return {};
    }

    static Json Select(Commands& c, A a) {
        Control& list = At(c, a);
        Check(Door(c, list).Select(list, a.Number("row"), !a.Has("on") || a.Truth("on")));
        return {};
    }

    static Json DoubleClick(Commands& c, A a) {
        Control& list = At(c, a);
        Check(Door(c, list).DoubleClick(list, a.Number("row")));
        return {};
    }

    static Json RightClick(Commands& c, A a) {
        Control& list = At(c, a);
        Check(Door(c, list).RightClick(list, a.Number("row")));
        return {};
    }

    static Json Choose(Commands& c, A a) {
        auto* entry = dynamic_cast<MenuEntry*>(c.client.MainView().Find(a.Text("entry")));
        if (entry == nullptr) throw Refused{"no such entry"};
        Check(c.client.Input().Choose(*entry));
        return {};
    }

    static Json Type(Commands& c, A a) {
        Check(c.client.Input().Type(AtKind<TextBox>(c, a, "text box"), a.Text("text")));
        return {};
    }

    static Json Key(Commands& c, A a) {
        Control& control = At(c, a);
        const long key = a.Number("key"), shift = a.Number("shift", 0);
        if (key < 1 || key > 255 || shift < 0 || shift > 7) throw Refused{"no such key"};
        // A handler that waits has set the key by then, and the reply says what it was set to.
        const auto pressed = std::make_shared<int>(static_cast<int>(key)); // commands under its wait have their own
        c.key = pressed;
        Check(Door(c, control).Key(control, *pressed, static_cast<int>(shift)));
        return {{"swallowed", *pressed == 0}};
    }

    static Json Tick(Commands& c, A a) {
        Check(c.client.Input().Check(AtKind<CheckBox>(c, a, "check box"), a.Truth("on")));
        return {};
    }

    static Json Answer(Commands& c, A a) {
        if (a.Has("text"))
            Check(c.client.Input().AnswerText(a.Text("text")));
        else if (a.Has("file"))
            Check(c.client.Input().AnswerFile(a.Text("file")));
        else if (a.Has("colour"))
            Check(c.client.Input().AnswerColour(static_cast<Colour>(a.Number("colour"))));
        else
            Check(c.client.Input().PressButton(static_cast<BoxResult>(a.Number("button"))));
        return {};
    }

    static Json Close(Commands& c, A a) {
        Form* form = FormNamed(c, a.Text("form"));
        if (form == nullptr) throw Refused{"no such form"};
        Check(c.client.Input().Close(*form));
        return {};
    }

    static Json Resize(Commands& c, A a) {
        constexpr long kLargest = 100'000;
        const long width = a.Number("width"), height = a.Number("height");
        if (width < 0 || width > kLargest || height < 0 || height > kLargest) throw Refused{"no such size"};
        c.client.Resize(static_cast<int>(width), static_cast<int>(height));
        return {};
    }

    static Json Get(Commands& c, A a) {
        const std::string at = a.Text("at");
        if (const Control* control = ControlNamed(c, at)) {
            const Container* front = c.client.Stack().Active();
            if (front == nullptr) front = Page(c);
            return Json::parse(Describe(*control, &control->Parent() == front, c.page));
        }
        const Form* form = FormNamed(c, at);
        if (form == nullptr) throw Refused{"no such control or form"};
        return Json::parse(Describe(*form, c.page));
    }

    static const Container* Page(Commands& c) {
        if (c.shown == Shown::MainLobby) return &c.entry.MainView();
        return &c.client.MainView();
    }

    static Json Fields(Commands& c, A) {
        Json fields = Json::parse(DescribeMarks(c.client, c.page));
        if (c.shown == Shown::MainLobby) {
            fields["m_GameLobby"] = c.page.ToUtf8(c.entry.m_GameLobby);
            fields["connected"] = c.entry.IsConnected();
        }
        return fields;
    }

    static Json Forms(Commands& c, A) {
        Json names = Json::array();
        for (const Form* form : c.client.Stack().Visible()) names.push_back(form->Name());
        return {{"forms", std::move(names)}};
    }

    static Json Setting(Commands& c, A a) {
        const std::string section = a.Text("section"), key = a.Text("key");
        if (!a.Has("value")) return {{"value", c.page.ToUtf8(c.client.Store().GetSetting(section, key))}};
        c.client.Store().SaveSetting(section, key, a.Text("value"));
        return {};
    }

    static Json Ini(Commands& c, A a) {
        const std::string file = a.Text("file"), section = a.Text("section"), key = a.Text("key");
        if (file.find_first_of("/\\") != std::string::npos) throw Refused{"the file needs a bare name"};
        if (!a.Has("value")) return {{"value", c.page.ToUtf8(c.client.Inis().Read(file, section, key))}};
        const std::string value = a.Text("value");
        if (!IniDocument::CanHold(section, key, value)) throw Refused{"the file cannot hold it"};
        c.client.Inis().Write(file, section, key, value);
        return {};
    }

    static Json RegistryEntry(Commands& c, A a) {
        const std::string key = a.Text("key"), name = a.Has("name") ? a.Text("name") : std::string();
        const long type = a.Number("type", 1);
        if (type != 1 && type != 4) throw Refused{"a value is a text (1) or a number (4)"};
        if (a.Has("value")) {
            c.client.Hive().Write(key, name,
                                  type == 4 ? RegistryValue(static_cast<std::int32_t>(a.Number("value")))
                                            : RegistryValue(a.Text("value")));
            return {};
        }
        const auto value = c.client.Hive().Read(key, name);
        if (!value) return {{"value", nullptr}};
        if (const auto* text = std::get_if<std::string>(&*value)) return {{"value", c.page.ToUtf8(*text)}};
        return {{"value", std::get<std::int32_t>(*value)}};
    }

    static Json Call(Commands& c, A a) {
        const std::string on = a.Has("on") ? a.Text("on") : std::string();
        if (!on.empty() && on != "clsDirectPlay") throw Refused{"no such class"};
        if (c.shown == Shown::Nothing) throw Refused{"nothing is shown"};
        std::vector<Value> arguments;
        if (a.Has("args")) {
            if (!a.Field("args").is_array()) throw Refused{"\"args\" is no list"};
            for (const Json& given : a.Field("args")) {
                Value value;
                if (given.is_string())
                    value = {Value::Kind::Text, a.Held(given, "args"), 0, false};
                else if (given.is_boolean())
                    value = {Value::Kind::Truth, "", 0, given.get<bool>()};
                else if (given.is_number_integer())
                    value = {Value::Kind::Number, "", given.get<long>(), false};
                else
                    throw Refused{"an argument is no text, number or truth"};
                arguments.push_back(std::move(value));
            }
        }
        std::string why;
        const std::string member = a.Text("member");
        const auto answer = !on.empty()                   ? CallMember(c.directPlay, member, arguments, why)
                            : c.shown == Shown::MainLobby ? CallMember(c.entry, member, arguments, why)
                                                          : CallMember(c.client, member, arguments, why);
        if (!answer) throw Refused{why};
        Json reply = Json::object();
        const std::pair<const char*, const Value&> kParts[] = {{"value", answer->value}, {"vValue", answer->vValue}};
        for (const auto& [name, value] : kParts) {
            if (value.kind == Value::Kind::Text) reply[name] = c.page.ToUtf8(value.text);
            if (value.kind == Value::Kind::Number) reply[name] = value.number;
            if (value.kind == Value::Kind::Truth) reply[name] = value.truth;
        }
        return reply;
    }

    static Json Advance(Commands& c, A a) {
        if (!c.loop.Advance(a.Length("ms"))) throw Refused{"time is real here"};
        return {};
    }

    static Json Settle(Commands& c, A a) {
        c.loop.Settle(a.Length("ms"));
        return {};
    }

    static Json ChangeWorld(Commands& c, A a) {
        console::ChangeWorld(c.world, a);
        return {};
    }

    static Json Quit(Commands& c, A) {
        c.client.Stack().RequestEnd();
        return {};
    }

    static const Row kRows[];
};

const Commands::Table::Row Commands::Table::kRows[] = {
    {"show", Show},
    {"click", Click},
    {"select", Select},
    {"dblclick", DoubleClick},
    {"rightclick", RightClick},
    {"choose", Choose},
    {"type", Type},
    {"key", Key},
    {"check", Tick},
    {"answer", Answer},
    {"close", Close},
    {"resize", Resize},
    {"get", Get},
    {"fields", Fields},
    {"forms", Forms},
    {"setting", Setting},
    {"ini", Ini},
    {"registry", RegistryEntry},
    {"call", Call},
    {"advance", Advance},
    {"settle", Settle},
    {"world", ChangeWorld},
    {"quit", Quit},
};

std::string Commands::Run(const std::string& line) {
    current.clear();
    key.reset();
    const Json command = Json::parse(line, nullptr, false);
    Json reply{{"reply", nullptr}, {"ok", true}};
    try {
        if (!command.is_object()) throw Refused{"is no JSON object"};
        const Json& name = command.contains("do") ? command["do"] : Json();
        if (!name.is_string()) throw Refused{"needs a text in \"do\""};
        current = name.get<std::string>();
        reply["reply"] = current;
        const Table::Row* found = nullptr;
        for (const Table::Row& row : Table::kRows)
            if (row.name == current) found = &row;
        if (found == nullptr) throw Refused{"no such command"};
        const Json more = found->run(*this, Arguments{command, page});
        if (more.is_object()) reply.update(more);
    } catch (const Refused& refused) {
        reply["ok"] = false;
        reply["error"] = page.ToUtf8(refused.why);
    } catch (const RuntimeError& error) {
        reply["ok"] = false;
        reply["error"] = page.ToUtf8(error.what());
    }
    return reply.dump();
}

std::string Commands::ReplyWhileWaiting() {
    Json reply{{"reply", current}, {"ok", true}};
    if (key) reply["swallowed"] = *key == 0;
    return reply.dump();
}

} // namespace ombrin::console
