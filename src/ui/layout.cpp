#include "ui/layout.h"

#include <cmath>

namespace ombrin {

namespace {

using Member = Control& (*)(View&);

/// A fraction that leaves the value as it is.
constexpr double kUnchanged = -1;

struct Fractions {
    Member control;
    double left, top, width, height; ///< left and width of the view's width, top and height of its height
};

constexpr Fractions kFractions[] = {
    {[](View& v) -> Control& { return v.OBSkin; }, kUnchanged, kUnchanged, 1, 1},
    {[](View& v) -> Control& { return v.lbLobbies; }, 0.133, 0.1854, 0.1381, 0.7984},
    {[](View& v) -> Control& { return v.msflxMainChatLines; }, 0.2878, 0.1854, 0.366, 0.3165},
    {[](View& v) -> Control& { return v.UserList; }, 0.68, 0.1854, 0.1364, 0.4377},
    {[](View& v) -> Control& { return v.RoomList; }, 0.8276, 0.1854, 0.1364, 0.4377},
    {[](View& v) -> Control& { return v.MainText; }, 0.2868, 0.5822, 0.2738, kUnchanged},
    {[](View& v) -> Control& { return v.SendMain; }, 0.6138, 0.5822, kUnchanged, kUnchanged},
    {[](View& v) -> Control& { return v.msflexRoomLines; }, 0.2828, 0.6913, 0.3721, 0.1748},
    {[](View& v) -> Control& { return v.RoomUserList; }, 0.68, 0.6913, 0.1364, 0.2984},
    {[](View& v) -> Control& { return v.BuddyLV; }, 0.8276, 0.6913, 0.1364, 0.2984},
    {[](View& v) -> Control& { return v.RoomText; }, 0.2868, 0.9442, 0.2738, kUnchanged},
    {[](View& v) -> Control& { return v.SendRoom; }, 0.6138, 0.9442, kUnchanged, kUnchanged},
};

/// Labels keep their size; their places are pixels of the drawing.
struct LabelPlace {
    Member control;
    int left, top;
};

constexpr LabelPlace kLabels[] = {
    {[](View& v) -> Control& { return v.LobbiesLabel; }, 181, 107},
    {[](View& v) -> Control& { return v.ChatFrame; }, 330, 107},
    {[](View& v) -> Control& { return v.LobbyUsersLabel; }, 710, 107},
    {[](View& v) -> Control& { return v.RoomsLabel; }, 850, 107},
    {[](View& v) -> Control& { return v.RoomBorder; }, 330, 492},
    {[](View& v) -> Control& { return v.RoomUsersLabel; }, 710, 492},
    {[](View& v) -> Control& { return v.BuddiesLabel; }, 850, 492},
};

/// Sizes that no layout changes, and the places of what is never moved.
struct Definition {
    Member control;
    Place place;
};

constexpr int kButtonWidth = 96, kButtonHeight = 43;

constexpr Definition kDefinitions[] = {
    {[](View& v) -> Control& { return v.OBSkin; }, {0, 0, Layout::kDrawnWidth, Layout::kDrawnHeight}},
    {[](View& v) -> Control& { return v.MainText; }, {284, 439, 272, 26}},
    {[](View& v) -> Control& { return v.SendMain; }, {609, 439, 37, 25}},
    {[](View& v) -> Control& { return v.RoomText; }, {284, 712, 272, 26}},
    {[](View& v) -> Control& { return v.SendRoom; }, {609, 712, 37, 25}},
    {[](View& v) -> Control& { return v.LobbiesLabel; }, {181, 107, 100, 18}},
    {[](View& v) -> Control& { return v.ChatFrame; }, {330, 107, 300, 18}},
    {[](View& v) -> Control& { return v.LobbyUsersLabel; }, {710, 107, 100, 18}},
    {[](View& v) -> Control& { return v.RoomsLabel; }, {850, 107, 100, 18}},
    {[](View& v) -> Control& { return v.RoomBorder; }, {330, 492, 300, 18}},
    {[](View& v) -> Control& { return v.RoomUsersLabel; }, {710, 492, 100, 18}},
    {[](View& v) -> Control& { return v.BuddiesLabel; }, {850, 492, 100, 18}},
    {[](View& v) -> Control& { return v.Configure; }, {10, 2, kButtonWidth, kButtonHeight}},
    {[](View& v) -> Control& { return v.Logoff; }, {10, 49, kButtonWidth, kButtonHeight}},
    {[](View& v) -> Control& { return v.ConfigWarning; }, {10, 45, 140, 56}},
    {[](View& v) -> Control& { return v.lbAllUsers; }, {835, 6, 135, 90}},
    {[](View& v) -> Control& { return v.AVBrand; }, {835, 6, 135, 90}},
    {[](View& v) -> Control& { return v.Image1; }, {0, 0, 1, 1}},
    {[](View& v) -> Control& { return v.BannerAd; }, {231, 1, 468, 60}},
    {[](View& v) -> Control& { return v.PoweredBy; }, {701, 1, 112, 60}},
    {[](View& v) -> Control& { return v.Logo; }, {152, 6, 176, 78}},
    {[](View& v) -> Control& { return v.HiddenTextBox; }, {0, 0, 240, 16}},
};

constexpr Member kColumnTail[] = {
    [](View& v) -> Control& { return v.btnAddBuddy; },      [](View& v) -> Control& { return v.btnRemoveBuddy; },
    [](View& v) -> Control& { return v.btnConfigurable1; }, [](View& v) -> Control& { return v.btnConfigurable2; },
    [](View& v) -> Control& { return v.btnConfigurable3; }, [](View& v) -> Control& { return v.btnConfigurable4; },
    [](View& v) -> Control& { return v.btnConfigurable5; },
};

int Rounded(double value) { return static_cast<int>(std::lround(value)); }

int Bottom(const Control& control) { return control.Where().top + control.Where().height; }

} // namespace

Layout::Layout(View& view, const TextMeasure& measure, Log& log) : view(view), measure(measure), log(log) {
    for (const Definition& row : kDefinitions) row.control(view).SetPlace(row.place);
    for (Button* button : {&view.Create, &view.Destroy, &view.Enter, &view.Leave, &view.Launch, &view.PM,
                           &view.btnAddBuddy, &view.btnRemoveBuddy, &view.btnConfigurable1, &view.btnConfigurable2,
                           &view.btnConfigurable3, &view.btnConfigurable4, &view.btnConfigurable5})
        button->SetPlace({0, 0, kButtonWidth, kButtonHeight});
}

void Layout::Resize(int newWidth, int newHeight) {
    if (newWidth < 0 || newHeight < 0) return;
    width = newWidth;
    height = newHeight;
    UserControl_Resize();
}

int Layout::X(double fraction) const { return Rounded(width * fraction); }
int Layout::Y(double fraction) const { return Rounded(height * fraction); }

void Layout::UserControl_Resize() {
    log.TraceMessage("UserControl_Resize() called");
    if (height < kLeastHeight || width < kLeastWidth) return;
    constexpr int kHighView = 800;
    const bool high = height > kHighView;
    PlaceByFractions();
    SizeColumns();
    PlaceColumn(high ? 9 : 0);
    PlaceLabels();
    PlaceBannerAndBrand(high);
}

void Layout::PlaceByFractions() {
    for (const Fractions& row : kFractions) {
        Control& control = row.control(view);
        Place place = control.Where();
        if (row.left != kUnchanged) place.left = X(row.left);
        if (row.top != kUnchanged) place.top = Y(row.top);
        if (row.width != kUnchanged) place.width = X(row.width);
        if (row.height != kUnchanged) place.height = Y(row.height);
        control.SetPlace(place);
    }
}

void Layout::SizeColumns() {
    const double twips = measure.TwipsPerPixel();
    for (FlexGrid* grid : {&view.msflxMainChatLines, &view.msflexRoomLines}) {
        const int own = grid->Where().width;
        grid->SetColWidth(0, Rounded(own * 0.234 * twips));
        grid->SetColWidth(1, Rounded((own * 0.766 - 25) * twips));
        grid->SetTopRow(grid->Rows() - 1);
    }
    for (ListView* list : {&view.UserList, &view.RoomList, &view.RoomUserList})
        list->SetHeaderWidth(1, list->Where().width - 25);
    for (const std::size_t column : {1, 2})
        view.BuddyLV.SetHeaderWidth(column, Rounded(view.BuddyLV.Where().width / 2.0 - 12.5));
}

/// All hang off the list of lobbies, at the width of Create. Buttons on the same spot are never shown together.
void Layout::PlaceColumn(int gap) {
    const int left = view.lbLobbies.Where().left - view.Create.Where().width - 10;
    const auto stand = [left](Control& control, int top) {
        Place place = control.Where();
        place.left = left;
        place.top = top;
        control.SetPlace(place);
    };
    for (Button* button : {&view.Create, &view.Destroy}) stand(*button, Y(0.1735));
    for (Button* button : {&view.Enter, &view.Leave, &view.Launch}) stand(*button, Bottom(view.Create) + gap);
    stand(view.PM, Bottom(view.Leave) + gap);
    const Control* before = &view.PM;
    for (const Member member : kColumnTail) {
        stand(member(view), Bottom(*before) + gap);
        before = &member(view);
    }
}

void Layout::PlaceLabels() {
    for (const LabelPlace& row : kLabels) {
        Control& label = row.control(view);
        Place place = label.Where();
        place.left = Rounded(static_cast<double>(width) * row.left / kDrawnWidth);
        place.top = Rounded(static_cast<double>(height) * row.top / kDrawnHeight);
        label.SetPlace(place);
    }
}

void Layout::PlaceBannerAndBrand(bool high) {
    const Place lobbies = view.lbLobbies.Where();
    Place banner = view.BannerAd.Where();
    banner.top = high ? Rounded(height * 16.0 / kDrawnHeight) : 1;
    banner.left = Rounded(width * 231.0 / kDrawnWidth);
    view.BannerAd.SetPlace(banner);

    Place brand = view.PoweredBy.Where();
    brand.top = high ? Bottom(view.btnConfigurable5) + 10 : 1;
    brand.left = high ? lobbies.left - brand.width - 10 : banner.left + banner.width + 2;
    view.PoweredBy.SetPlace(brand);

    view.Logo.SetPlace({lobbies.left + 20, banner.top + 5, X(0.177), Y(0.103)});
}

} // namespace ombrin
