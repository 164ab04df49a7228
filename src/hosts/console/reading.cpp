#include "hosts/console/reading.h"

#include <nlohmann/json.hpp>

namespace ombrin::console {

namespace {

using Json = nlohmann::ordered_json;

/// A colour as the platform's default text colour, where a list was never given one.
constexpr Colour kUsualColour = 0;

class Reader {
public:
    Reader(const Control& control, bool inFront, const CodePage& page)
        : control(control), inFront(inFront), page(page) {}

    Json Read() {
        Json out{
            {"visible", control.Visible()}, {"enabled", control.Enabled()}, {"focus", inFront && control.HasFocus()}};
        switch (control.Kind()) {
        case ControlKind::ListBox:
            Read(static_cast<const ListBox&>(control), out);
            break;
        case ControlKind::ListView:
            Read(static_cast<const ListView&>(control), out);
            break;
        case ControlKind::FlexGrid:
            Read(static_cast<const FlexGrid&>(control), out);
            break;
        case ControlKind::TextBox:
            Read(static_cast<const TextBox&>(control), out);
            break;
        case ControlKind::ComboBox:
            Read(static_cast<const TextBox&>(control), out);
            Read(static_cast<const ComboBox&>(control).List(), out);
            break;
        case ControlKind::ColourSwatch:
            out["colour"] = static_cast<const ColourSwatch&>(control).Colour();
            break;
        case ControlKind::CheckBox:
            out["caption"] = Text(static_cast<const CheckBox&>(control).Caption());
            out["on"] = static_cast<const CheckBox&>(control).On();
            break;
        case ControlKind::OptionButton:
            out["caption"] = Text(static_cast<const OptionButton&>(control).Caption());
            out["on"] = static_cast<const OptionButton&>(control).On();
            break;
        case ControlKind::ProgressBar:
            out["value"] = static_cast<const ProgressBar&>(control).Value();
            break;
        case ControlKind::StatusBar:
            out["text"] = Text(static_cast<const StatusBar&>(control).Text());
            break;
        case ControlKind::Timer:
            out["enabled"] = static_cast<const Timer&>(control).On();
            out["interval"] = static_cast<const Timer&>(control).Interval().count();
            break;
        case ControlKind::Button:
            Read(static_cast<const Button&>(control), out);
            break;
        case ControlKind::Image:
            out["picture"] = Shown(static_cast<const Image&>(control).Picture());
            break;
        case ControlKind::Label:
        case ControlKind::Frame:
        case ControlKind::MenuEntry:
            out["caption"] = Text(static_cast<const Captioned&>(control).Caption());
            break;
        default:
            break;
        }
        if (dynamic_cast<const View*>(&control.Parent()) != nullptr) {
            const Place& place = control.Where();
            out["left"] = place.left;
            out["top"] = place.top;
            out["width"] = place.width;
            out["height"] = place.height;
        }
        if (HasText()) out["foreColour"] = control.ForeColour().value_or(kUsualColour);
        return out;
    }

private:
    bool HasText() const {
        const ControlKind kind = control.Kind();
        return kind != ControlKind::Image && kind != ControlKind::Menu && kind != ControlKind::MenuEntry &&
               kind != ControlKind::Timer && kind != ControlKind::WebBrowser && kind != ControlKind::ColourSwatch &&
               kind != ControlKind::ProgressBar;
    }

    std::string Text(std::string_view bytes) const { return page.ToUtf8(bytes); }

    Json Shown(const Picture& picture) const {
        if (picture.IsBuiltIn()) return "built-in";
        return picture.File() == nullptr ? Json(nullptr) : Json(Text(picture.File()->Path()));
    }

    void Read(const Button& button, Json& out) const {
        const ButtonPictures& pictures = button.Pictures();
        out["caption"] = Text(button.Caption());
        out["picture"] = Shown(button.Enabled() ? pictures.up : pictures.disabled);
        out["pictures"] = {
            {"up", Shown(pictures.up)}, {"down", Shown(pictures.down)}, {"disabled", Shown(pictures.disabled)}};
        out["flat"] = button.Flat();
    }

    void Read(const ListBox& list, Json& out) const {
        Json rows = Json::array();
        for (std::size_t i = 0; i < list.rows.Count(); ++i) {
            const RowId row = list.rows.At(i);
            rows.push_back({{"text", Text(list.rows.Text(row))}, {"selected", list.rows.Selected(row)}});
        }
        out["rows"] = std::move(rows);
    }

    void Read(const ListView& list, Json& out) const {
        Json rows = Json::array();
        for (std::size_t i = 0; i < list.rows.Count(); ++i) {
            const RowId row = list.rows.At(i);
            Json subItems = Json::array();
            for (std::size_t column = 1; column <= list.rows.SubItemCount(row); ++column)
                subItems.push_back(Text(list.rows.SubItem(row, column)));
            const int image = list.rows.Image(row);
            rows.push_back({{"text", Text(list.rows.Text(row))},
                            {"image", image == 0 ? Json(nullptr) : Json(image)},
                            {"colour", list.rows.RowColour(row).value_or(list.ForeColour().value_or(kUsualColour))},
                            {"tag", Text(list.rows.Tag(row))},
                            {"tip", Text(list.rows.Tip(row))},
                            {"sub", std::move(subItems)}});
        }
        out["rows"] = std::move(rows);
        out["selected"] = list.SelectedItem() ? static_cast<long>(list.rows.PositionOf(list.SelectedItem())) : -1L;
        Json headers = Json::array();
        for (const std::string& header : list.Headers()) headers.push_back(Text(header));
        out["headers"] = std::move(headers);
    }

    void Read(const FlexGrid& grid, Json& out) const {
        Json rows = Json::array(), heights = Json::array();
        for (int row = 0; row < grid.Rows(); ++row) {
            rows.push_back({Text(grid.TextAt(row, 0)), Text(grid.TextAt(row, 1))});
            heights.push_back(grid.RowHeight(row));
        }
        out["rows"] = std::move(rows);
        out["row"] = grid.Row();
        out["topRow"] = grid.TopRow();
        out["heights"] = std::move(heights);
    }

    void Read(const std::vector<std::string>& entries, Json& out) const {
        Json list = Json::array();
        for (const std::string& entry : entries) list.push_back(Text(entry));
        out["list"] = std::move(list);
    }

    void Read(const TextBox& box, Json& out) const {
        out["text"] = Text(box.Text());
        out["maxLength"] = box.MaxLength();
        out["selStart"] = box.SelStart();
        out["selLength"] = box.SelLength();
    }

    const Control& control;
    bool inFront;
    const CodePage& page;
};

} // namespace

std::string Describe(const Control& control, bool inFront, const CodePage& page) {
    return Reader(control, inFront, page).Read().dump();
}

std::string Describe(const Form& form, const CodePage& page) {
    Json out{{"visible", form.Visible()},
             {"enabled", true},
             {"focus", false},
             {"caption", page.ToUtf8(form.Caption())},
             {"modal", form.IsModal()}};
    if (const auto* box = dynamic_cast<const MessageBoxForm*>(&form)) out["text"] = page.ToUtf8(box->Text());
    if (const auto* box = dynamic_cast<const InputBoxForm*>(&form)) out["text"] = page.ToUtf8(box->Prompt());
    return out.dump();
}

std::string DescribeMarks(GameLobby& client, const CodePage& page) {
    const Session& marks = client.Marks();
    return Json{{"m_UserData", page.ToUtf8(marks.m_UserData)},
                {"m_UserName", page.ToUtf8(marks.m_UserName)},
                {"m_CurrentLobby", page.ToUtf8(marks.m_CurrentLobby)},
                {"m_CurrentRoom", page.ToUtf8(marks.m_CurrentRoom)},
                {"m_SelectedRoom", page.ToUtf8(marks.m_SelectedRoom)},
                {"m_IsRoomCreator", marks.m_IsRoomCreator},
                {"m_RoomHostAddress", page.ToUtf8(marks.m_RoomHostAddress)},
                {"m_LocalIP", page.ToUtf8(marks.m_LocalIP)},
                {"m_StandAlone", marks.m_StandAlone},
                {"m_ServerConnected", marks.m_ServerConnected},
                {"m_UserListSeen", marks.m_UserListSeen},
                {"m_bBannersEnabled", marks.m_bBannersEnabled},
                {"Enabled", client.MainView().Enabled()},
                {"connected", client.Connection().IsConnected()}}
        .dump();
}

std::string DescribeEvent(const recording::Event& event, const CodePage& page) {
    Json out{{"event", event.name}};
    for (const auto& [name, value] : event.fields) {
        if (const auto* text = std::get_if<std::string>(&value))
            out[name] = page.ToUtf8(*text);
        else if (const auto* number = std::get_if<std::int64_t>(&value))
            out[name] = *number;
        else
            out[name] = std::get<bool>(value);
    }
    return out.dump();
}

std::string DescribeShown(const Form& form, const CodePage& page) {
    Json out{{"event", "show"}, {"form", form.Name()}, {"modal", form.IsModal()}};
    if (const auto* box = dynamic_cast<const MessageBoxForm*>(&form)) {
        out["text"] = page.ToUtf8(box->Text());
        out["title"] = page.ToUtf8(box->Caption());
        out["buttons"] = static_cast<int>(box->Buttons());
        out["icon"] = static_cast<int>(box->Icon());
    }
    if (const auto* box = dynamic_cast<const InputBoxForm*>(&form)) out["text"] = page.ToUtf8(box->Prompt());
    return out.dump();
}

std::string DescribeHidden(const Form& form) { return Json{{"event", "hide"}, {"form", form.Name()}}.dump(); }

std::string DescribeMenu(const Menu& menu, const CodePage& page) {
    Json entries = Json::array();
    for (const MenuEntry* entry : menu.Entries())
        if (entry->Visible()) entries.push_back({{"entry", entry->Name()}, {"caption", page.ToUtf8(entry->Caption())}});
    return Json{{"event", "menu"}, {"menu", menu.Name()}, {"entries", std::move(entries)}}.dump();
}

} // namespace ombrin::console
