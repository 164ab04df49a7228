// Rooms: their lists, the preview, the dialogs, pings; and a server that does as it likes.
#include "support/played_client.h"

#include "controls/user_input.h"

#include <random>
#include <sstream>

namespace ombrin::test {

using testing::StartsWith;

namespace {

using Rows = std::vector<std::string>;

struct WithRooms : PlayedClient, testing::Test {
    WithRooms() {
        LogsOn();
        Sends("2:Arena;1;10.0.0.9;3;8;Red Base;4;10.0.0.7;2;4;~");
    }

    Rows RoomLines() const { return Texts(view.msflexRoomLines); }
};

} // namespace

TEST_F(WithRooms, RowsCarryNameNumbersAddressAndPicture) {
    const RowList& rows = view.RoomList.rows;
    EXPECT_EQ(rows.Tag(rows.At(0)) + "|" + rows.Tip(rows.At(1)), "10.0.0.9|Red Base");
    const std::pair<const char*, Rows> kCases[] = {
        // each row with its picture
        {"14:Arena;7;;;;Gone;1;;;;Red Base;1;~", {"Arena (3/8) 1", "Red Base (2/4) 1"}},
        {"14:Arena;3;~13:2:bob;Arena;10.0.0.9;1:cid;Red Base;10.0.0.7;~", {"Arena (4/8) 2", "Red Base (1/4) 1"}},
        {"13:2:stranger;Arena;10.0.0.9;5:bob;Arena;;3:cid;Arena;;~", {"Arena (4/8) 2", "Red Base (1/4) 1"}},
        {"2:Arena;4;10.0.0.1;1;2;~", {"Arena (4/8) 3", "Red Base (1/4) 1", "Arena (1/2) 0"}},
        {"11:Arena;~11:Nosuch;~", {"Red Base (1/4) 1", "Arena (1/2) 0"}},
        {"2: Hut ;1;;1;2;~11:Hut;~", {"Red Base (1/4) 1", "Arena (1/2) 0", " Hut  (1/2) 0"}},
        {"11: Hut ;~", {"Red Base (1/4) 1", "Arena (1/2) 0"}},
    };
    for (const auto& [message, expected] : kCases) {
        Sends(message);
        Rows seen;
        rows.ForEach([&](RowId row) { seen.push_back(rows.Text(row) + " " + std::to_string(rows.Image(row))); });
        EXPECT_EQ(seen, expected) << message;
    }
    Sends("11:Red Base;~11:Arena;~");
    EXPECT_FALSE(view.Enter.Enabled());
    EXPECT_EQ(Top(), "");
    Sends("2:Odd;1;;many;8;~13:1:bob;Odd;;~");
    IsTold(StartsWith("Error: occured in module UpdateRoomUserCount().  Error number: 13,"));
    EXPECT_EQ(Texts(rows), Rows{"Odd (many/8)"}) << "a count that is no number stays";
}

TEST_F(WithRooms, APreviewFollowsItsRoomAndVanishesWithIt) {
    Selects(view.RoomList, 1);
    EXPECT_EQ(Heard(), "Ombrin:11:ann;Go;10.0.0.5;Red Base;:~");
    EXPECT_EQ(view.RoomBorder.Caption(), "Room: Red Base");
    Sends("3:cid;10.0.0.7;N;~4:cid:hello:;~");
    Sends("13:2:bob;Red Base;10.0.0.9;2:ann;Arena;10.0.0.5;~");
    EXPECT_EQ(Texts(view.RoomUserList.rows), (Rows{"cid", "bob"}));
    EXPECT_EQ(view.RoomUserList.rows.Tag(view.RoomUserList.rows.Find("bob")), "10.0.0.9;N;");
    EXPECT_EQ(world.Told("sound"), Rows{}) << "a preview is silent";
    Sends("13:1:cid;Red Base;;~11:Red Base;~");
    EXPECT_EQ(Texts(view.RoomUserList.rows), Rows{"bob"});
    Passes(Milliseconds(5000));
    EXPECT_EQ(Texts(view.RoomUserList.rows), Rows{});
    EXPECT_EQ(Marks().m_SelectedRoom + view.RoomBorder.Caption(), "Room:");
    EXPECT_EQ(RoomLines(), Rows{});
}

TEST_F(WithRooms, ANewRoomNeedsAProperNameAndTheDialogKeepsItsFields) {
    NewRoom& dialog = forms.NewRoom;
    Presses(view.Create);
    EXPECT_EQ(dialog.MaxUsers.List().size(), 31u);
    EXPECT_EQ(dialog.MaxUsers.List().back() + dialog.MaxUsers.Text(), "32 2");
    const auto complaint = [&] {
        Presses(dialog.OKButton);
        const std::string text = BoxText();
        Answers(BoxResult::Ok);
        return text;
    };
    Types(dialog.NewRoomName, "   ");
    EXPECT_EQ(complaint(), "Error:  Room name must be entered");
    for (const char* bad : {"a:b", "a;b", "a~b", "a(b", "a/b", "a)b"}) {
        Types(dialog.NewRoomName, bad);
        EXPECT_EQ(complaint(), "ERROR:  Room names cannot contain any of the following characters: :;~(/)") << bad;
    }
    Types(dialog.NewRoomName, std::string(45, 'x'));
    EXPECT_EQ(dialog.NewRoomName.Text().size(), 40u);
    EXPECT_FALSE(dialog.Password.Visible());
    Ticks(dialog.PasswordRoom, true);
    EXPECT_TRUE(dialog.Password.HasFocus());
    EXPECT_EQ(complaint(), "Error: Password must be entered.");
    EXPECT_TRUE(dialog.NewRoomName.HasFocus()) << "painted again behind the box";
    Types(dialog.Password, "a/b");
    EXPECT_EQ(complaint(), "ERROR:  Room passwords cannot contain any of the following characters: :;~(/)");
    Types(dialog.NewRoomName, " My Room ");
    Types(dialog.Password, "gold");
    Selects(dialog.MaxUsers, 8);
    Key(dialog.Password, UserInput::kEnter);
    EXPECT_EQ(Heard(), "Ombrin:4:ann;Go;10.0.0.5;My Room;10;1;gold;N;:~");
    Refuses("17:~");

    Presses(view.Create);
    EXPECT_EQ(dialog.NewRoomName.Text(), "My Room");
    Types(dialog.Password, "a;b~c");
    Ticks(dialog.PasswordRoom, false);
    client.Store().SaveSetting("Settings", "PublicIP", "Y");
    Presses(dialog.OKButton);
    EXPECT_EQ(Heard(), "Ombrin:4:ann;Go;10.0.0.5;My Room;10;0;a^}|#b`@/<c;Y;:~")
        << "what is not asked for cannot break the message";
}

TEST_F(WithRooms, ACreatorChatsRejectsAndDestroys) {
    CreatesRoom("Base");
    EXPECT_EQ(view.RoomBorder.Caption(), "Room: Base");
    Sends("3:bob;10.0.0.9;N;bob;10.0.0.1;Y;~4:bob:hi%*|@:;ann:echo:;~");
    EXPECT_EQ(RoomLines(), Rows{"bob: hi:"});
    EXPECT_EQ(world.Told("sound"), (Rows{"EnterRoom.wav", "EnterRoom.wav"}));
    Types(view.RoomText, "a:b;c");
    EXPECT_EQ(Key(view.RoomText, UserInput::kEnter), 0);
    EXPECT_EQ(Heard(), "Ombrin:5:ann;Go;10.0.0.5;a%*|@b^}|#c;Base;:~");
    EXPECT_EQ(RoomLines(), (Rows{"bob: hi:", "ann: a:b;c"}));
    EXPECT_EQ(Key(view.RoomText, UserInput::kEnter), 0) << "swallowed in an empty box, too";

    Tries([&](UserInput& input) { return input.RightClick(view.RoomUserList, 0); });
    EXPECT_EQ(view.OpenMenu(), nullptr) << "nobody rejects himself";
    Chooses(view.RoomUserList, 1, view.RejectUserMenu);
    EXPECT_EQ(Heard(), "Ombrin:23:ann;Go;10.0.0.5;Base;bob;:~");
    Sends("8:bob;~");
    EXPECT_EQ(Texts(view.RoomUserList.rows), Rows{"ann"});
    DoubleClicks(view.lbLobbies, 1);
    EXPECT_EQ(Heard(), "") << "nobody changes the lobby from a room";
    Presses(view.Destroy);
    Answers(BoxResult::Yes);
    EXPECT_EQ(Heard(), "Ombrin:9:ann;Go;10.0.0.5;Base;:~");
    Sends("10:~");
    EXPECT_EQ(RoomLines(), Rows{});
    EXPECT_EQ(view.RoomText.Text() + Marks().m_CurrentRoom, "");
    EXPECT_FALSE(Marks().m_IsRoomCreator || view.PingTimer.On());
}

TEST_F(WithRooms, AMemberKnowsTheHostsAddressAndKeepsTheFirstLineOfThePreview) {
    Sends("4:bob:one:;bob:two:;~");
    EntersRoom();
    EXPECT_EQ(RoomLines(), Rows{"bob: one"});
    Tries([&](UserInput& input) { return input.RightClick(view.RoomUserList, 0); });
    EXPECT_EQ(view.OpenMenu(), nullptr) << "a member rejects nobody";
    Sends("7:nobody;~");
    EXPECT_EQ(Marks().m_RoomHostAddress, "10.0.0.9");
    Presses(view.Leave);
    world.events.clear();
    Sends("3:cid;10.0.0.7;N;~");
    EXPECT_EQ(world.Told("sound"), Rows{}) << "on the way out nothing sounds";
    Sends("42:~");
    EXPECT_EQ(world.Told("sound"), Rows{""});
}

TEST_F(WithRooms, PingsGiveEachRowItsPictureAndATipThatHidesPrivateAddresses) {
    world.pings.answers = {{"10.0.0.1", 100}, {"10.0.0.2", 101}, {"10.0.0.3", 200}, {"10.0.0.4", 201}};
    Presses(view.Enter);
    Sends("3:a;10.0.0.1;Y;b;10.0.0.2;N;ann;10.0.0.3;N;d;10.0.0.4;;e;;Y;~");
    const RowList& rows = view.RoomUserList.rows;
    const std::pair<int, std::string> kCases[] = {{1, "Ping: 100 ms,    IP: 10.0.0.1"},
                                                  {2, "Ping: 101 ms,    IP: Private"},
                                                  {2, "Ping: 200 ms,    IP: 10.0.0.3"},
                                                  {3, "Ping: 201 ms,    IP: 10.0.0.4"},
                                                  {0, ""}};
    for (std::size_t i = 0; i < std::size(kCases); ++i)
        EXPECT_EQ(std::pair(rows.Image(rows.At(i)), rows.Tip(rows.At(i))), kCases[i]) << i;
    Sends("7:a;~");
    world.pings.answers = {{"10.0.0.1", 5}, {"10.0.0.2", std::nullopt}, {"10.0.0.3", 5}};
    Passes(Milliseconds(30'000));
    IsTold(StartsWith("Error: occured in module PingTimer_Timer()"));
    EXPECT_EQ(world.Told("ping").back(), "10.0.0.2") << "the round ends there";
    EXPECT_EQ(rows.Tip(rows.At(0)) + rows.Tip(rows.At(2)), "Ping: 5 ms,    IP: 10.0.0.1Ping: 200 ms,    IP: 10.0.0.3");
}

/// Whatever the server answers, in whatever order: a user who closes what stands open gets out, at the latest by a new
/// logon.
TEST(ServerAtWill, LeavesNoPositionWithoutAWayOut) {
    std::vector<std::string> messages;
    std::istringstream all("2:Arena;4;10.0.0.9;1;8;~3:bob;10.0.0.9;Y;~5:ann;10.0.0.5;N;~7:bob;~8:bob;~9:~10:~11:Arena;~"
                           "14:Arena;2;~17:~18:~19:~33:~34:~42:~43:~0:cid;1;~13:2:bob;Arena;10.0.0.9;~"
                           "35:bob;bob:psst:;~41:bob;Go;~41:bob;;~");
    for (std::string message; std::getline(all, message, '~');) messages.push_back(message + "~");
    for (unsigned seed = 1; seed <= 20; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        PlayedClient c;
        c.LogsOn();
        NewRoom& naming = c.forms.NewRoom;
        RoomPassword& asking = c.forms.RoomPassword;
        Control* const buttons[] = {&c.view.Create,   &c.view.Enter,    &c.view.Leave,        &c.view.Destroy,
                                    &naming.OKButton, &asking.OKButton, &asking.CancelButton, &c.view.RoomList};
        const std::function<void(UserInput&)> kInputs[] = {
            [&](UserInput& i) { i.Click(*buttons[random() % std::size(buttons)]); },
            [&](UserInput& i) { i.Type(random() % 2 == 0 ? naming.NewRoomName : asking.Password, "B"); },
            [&](UserInput& i) { i.PressButton(random() % 2 == 0 ? BoxResult::Ok : BoxResult::Yes); },
        };
        for (int step = 0; step < 200; ++step) {
            if (random() % 2 == 0) {
                c.Sends(messages[random() % messages.size()]);
            } else {
                const auto& input = kInputs[random() % std::size(kInputs)];
                c.Do([&c, &input] { input(c.client.Input()); });
            }
        }
        const auto closesAllBut = [&c](std::string_view last) {
            for (int forms = 0; c.Top() != last && forms < 200; ++forms)
                c.Do([&c] {
                    Form& top = *c.client.Stack().Top();
                    UserInput& input = c.client.Input();
                    const bool isBox = top.KindOfForm() == FormKind::MessageBox;
                    if (isBox ? input.PressButton(BoxResult::Ok) : input.Close(top)) input.PressButton(BoxResult::No);
                });
            ASSERT_EQ(c.Top(), last);
        };
        c.Do([&c] { c.client.CloseSocket(); });
        ASSERT_NO_FATAL_FAILURE(closesAllBut("UsrNmPwIP"));
        c.Connects();
        c.Accepts();
        c.Sends("45:10.0.0.5;~22:Go,1;Chess,2;~0:ann;1;~2:Arena;1;10.0.0.9;1;8;~");
        ASSERT_NO_FATAL_FAILURE(closesAllBut(""));
        c.Presses(c.view.Enter);
        EXPECT_TRUE(c.Server().sent.back().starts_with("Ombrin:7:ann;Go;10.0.0.5;Arena;;N;")) << c.Server().sent.back();
        c.Sends("3:ann;10.0.0.5;N;~7:bob;~");
        EXPECT_EQ(c.client.RoomPosition(), Position::Member);
        EXPECT_TRUE(c.view.Leave.Enabled() && c.view.Leave.Visible());
    }
}

} // namespace ombrin::test
