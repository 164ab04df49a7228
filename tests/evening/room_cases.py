"""Rooms between real clients and the real server."""
import contextlib
import io

from casebook import case, lobby_of
from evening import PRIVATE_CHAT, equal
from play import play


@case
def the_evening_that_run_tells_comes_to_its_end(evening):
    with contextlib.redirect_stdout(io.StringIO()):     # what is told does not matter here, a Failure does
        play(evening)


@case
def a_room_that_cannot_be_had_leads_back_to_the_lobby(evening):
    server, ann, bob, cid = lobby_of(evening, "Ann", "Bob", "Cid")
    ann.create_room("Base")
    bob.sees_rooms("Base (1/2)")
    bob.create_room("Base")
    equal(bob.reads_box(), "Error: Room already exists.", "a taken name")
    bob.sees_no_room()
    bob.enter_room("Base")
    cid.sees_rooms("Base (2/2)")
    cid.enter_room("Base")
    equal(cid.reads_box(), "Error: Room is not available.", "a full room")
    cid.sees_no_room()
    cid.write_to("Bob", "leave me a place")
    bob.sees_line("Cid", "leave me a place", PRIVATE_CHAT)
    cid.type("PMDialog.User", "Nobody")
    cid.answer_privately("hello?")
    equal(cid.reads_box(), "Nobody is not on line.", "an absent recipient")
    for friend in (bob, cid):
        friend.press("PMDialog.OKButton")

    cid.do("select", at="RoomList", row=0)
    cid.sees_in_room("Ann", "Bob")
    ann.kill()      # and takes her room with her
    bob.sees_no_room()
    for friend in (bob, cid):
        friend.sees_users("Bob", "Cid")
        friend.sees_rooms()
        equal(friend.status_of("Bob"), 1, "Bob's picture")
    cid.do("advance", ms=5000)
    equal(cid.room_users(), [], "the preview of a room that has gone")
    cid.create_room("Base")
    bob.sees_rooms("Base (1/2)")


@case
def a_change_of_lobby_shows_the_rooms_of_the_other_one(evening):
    server, ann, bob = lobby_of(evening, "Ann", "Bob")
    ann.create_room("Base")
    bob.sees_rooms("Base (1/2)")
    bob.go_to("Go")
    bob.sees_lobby("Go")
    equal(bob.rows("RoomList"), [], "the rooms of Go")
    bob.create_room("Base")     # the name is free here
    bob.sees_in_room("Bob", room="Base")
    bob.go_to("Chess")
    bob.settle()
    equal(bob.marks()["m_CurrentLobby"], "Go", "the lobby of somebody in a room")
    equal(ann.rows("RoomList"), ["Base (1/2)"], "the rooms of Chess")
