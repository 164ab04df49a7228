#include "ui/text/view_language.h"

#include "controls/grid_routines.h"
#include "foundation/text.h"

namespace ombrin {

void ViewLanguage::SetForeignLanguage() {
    trap(__func__, [&] {
        trap.log.TraceMessage("setting foreign language");
        std::string current = language.CurrentLanguage();
        if (current.empty()) {
            dialog.ShowModal();
            current = dialog.SelectedLanguage();
            if (!current.empty()) language.StoreCurrentLanguage(current);
        }
        language.SetFLLanguage(current);
        m_sRoomWord = "Room";
        if (Localisation::IsBuiltIn(current)) return;
        const std::string room = language.Translation(current, "Room");
        if (!room.empty()) {
            view.RoomBorder.SetCaption(Join(room, ":"));
            m_sRoomWord = room;
        }
        DisplayCurrentLanguage(current);
    });
}

void ViewLanguage::DisplayCurrentLanguage(std::string_view name) {
    trap(__func__, [&] {
        trap.log.TraceMessage("displaying current language");
        language.TranslateControls(view, name);
        const auto has = [&](std::string_view key) { return !language.Translation(name, key).empty(); };
        if (has("Rooms")) view.RoomList.SetHeader(1, "");
        for (const auto& [key, column] : {std::pair("User", 0), std::pair("Says", 1)}) {
            if (!has(key)) continue;
            for (FlexGrid* grid : {&view.msflxMainChatLines, &view.msflexRoomLines}) {
                grid->SetRow(0);
                grid->SetCol(column);
                grid->SetText("");
                ClearFlexGrid(*grid);
            }
        }
        if (has("Users")) {
            view.UserList.SetHeader(1, "");
            view.RoomUserList.SetHeader(1, "");
        }
        for (Menu* menu : {&view.UserMenu, &view.RoomMenu, &view.RoomUsersMenu}) language.SetFLOnMenu(*menu);
    });
}

} // namespace ombrin
