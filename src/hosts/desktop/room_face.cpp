#include "hosts/desktop/room_face.h"

#include "hosts/desktop/own_texts.h"

#include <QLineEdit>
#include <algorithm>

namespace ombrin::desktop {

namespace {

struct Wait {
    Position position;
    Own text;
};

constexpr Wait kWaits[] = {
    {Position::Creating, Own::Creating},     {Position::Entering, Own::Entering},   {Position::Leaving, Own::Leaving},
    {Position::Destroying, Own::Destroying}, {Position::Launching, Own::Launching},
};

bool IsWriting(const QWidget* widget) {
    const auto* line = qobject_cast<const QLineEdit*>(widget);
    return line != nullptr && line->isEnabled() && !line->text().isEmpty();
}

} // namespace

QString WaitingFor(Position position) {
    for (const Wait& wait : kWaits)
        if (wait.position == position) return Say(wait.text);
    return Say(Own::Waiting);
}

RoomFace::RoomFace(GameLobby& client, Board& board) : client(client), board(board) {
    View& view = client.MainView();
    spots = {{&view.Create, &view.Destroy}, {&view.Enter, &view.Leave, &view.Launch}};
    inFront.resize(spots.size());
    board.EachFrame([this] {
        StackButtons();
        MoveKeys();
    });
}

void RoomFace::StackButtons() {
    for (std::size_t i = 0; i < spots.size(); ++i) {
        const auto usable = std::find_if(spots[i].begin(), spots[i].end(),
                                         [](const Button* button) { return button->Visible() && button->Enabled(); });
        Button* front = usable != spots[i].end() ? *usable : nullptr;
        if (front == nullptr && client.RoomPosition() == Position::Lobby) front = spots[i].front(); // usable next
        if (front == nullptr || inFront[i] == front) continue;
        inFront[i] = front;
        BringToFront(*front, spots[i]);
    }
}

/// Among its own only: a page over the view stays over it.
void RoomFace::BringToFront(Control& button, const std::vector<Button*>& spot) {
    for (const Button* other : spot)
        if (other != &button) board.PainterOf(*other)->Widget()->stackUnder(board.PainterOf(button)->Widget());
}

void RoomFace::MoveKeys() {
    const Position now = client.RoomPosition();
    const bool inRoom = now == Position::Creator || now == Position::Member || now == Position::Launching;
    if ((!inRoom && now != Position::Lobby) || inRoom == wasInRoom) return; // else on the way
    wasInRoom = inRoom;
    View& view = client.MainView();
    TextBox& talk = inRoom ? view.RoomText : view.MainText;
    if (IsWriting(board.PainterOf(talk)->Widget()->window()->focusWidget())) return;
    QMetaObject::invokeMethod(
        &board, [this, &talk] { board.loop.Enter([&] { board.input.Focus(talk); }); }, Qt::QueuedConnection);
}

} // namespace ombrin::desktop
