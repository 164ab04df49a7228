// Private messages and buddies.
#include "support/played_client.h"

#include "controls/user_input.h"

namespace ombrin::test {

using testing::StartsWith;

namespace {

using Rows = std::vector<std::string>;

struct Friends : PlayedClient, testing::Test {
    Friends() { LogsOn(); }
    PMDialog& dialog = forms.PMDialog;

    Rows Talk() const { return Texts(dialog.msflxPMLines); }
    /// "name|status|colour" of each row, in order.
    Rows Pane() const {
        Rows seen;
        view.BuddyLV.rows.ForEach([&](RowId row) {
            const auto& rows = view.BuddyLV.rows;
            const auto colour = rows.RowColour(row);
            seen.push_back(rows.Text(row) + "|" + rows.SubItem(row, 1) + "|" +
                           (colour ? std::to_string(*colour) : std::string("-")));
        });
        return seen;
    }
    void AsksForBuddy(const std::string& name) {
        Presses(view.btnAddBuddy);
        Tries([&](UserInput& input) { return input.AnswerText(name); });
    }
};

const std::string kCyan = std::to_string(0x00FFFF00);

} // namespace

TEST_F(Friends, TheFirstMessageOpensTheDialogAndTheOwnEchoLeavesTheRecipient) {
    Sends("35:bob;bob:hi%*|@:;bob:there:;~");
    EXPECT_FALSE(dialog.IsModal());
    EXPECT_EQ(dialog.Caption(), "Private Message - ann");
    EXPECT_EQ(Talk(), (Rows{"bob: hi:", "bob: there"}));
    EXPECT_EQ(world.Told("sound"), Rows{"PMRecved.wav"});
    Sends("35:ann;ann:mine:;~");
    EXPECT_EQ(dialog.User.Text(), "bob");
    EXPECT_EQ(world.Told("message notice"), Rows{"bob"}) << "nobody is told of his own";
    Presses(view.PM);
    EXPECT_EQ(dialog.User.Text(), "") << "the selected row is the user himself";
    Presses(dialog.OKButton);
    client.Inis().Write("av.ini", "Sounds", "PMSound", "\\sounds\\ding.wav");
    client.Store().SaveSetting("Settings", "Notifications", "0");
    Sends("35:cid;cid:me too:;~");
    EXPECT_EQ(Talk().size(), 4u) << "lines survive closing";
    EXPECT_EQ(world.Told("sound").back(), "/home/app\\sounds\\ding.wav");
    EXPECT_EQ(world.Told("message notice").size(), 1u);
}

TEST_F(Friends, SendingStoresTheRecipientAndRefusesOnlyOneself) {
    DoubleClicks(view.UserList, 1);
    EXPECT_EQ(dialog.User.Text(), "bob");
    Types(dialog.PrivateMessage, "a;b");
    EXPECT_EQ(Key(dialog.PrivateMessage, UserInput::kEnter), 0);
    EXPECT_EQ(Heard(), "Ombrin:18:ann;Go;10.0.0.5;bob;a^}|#b;:~");
    EXPECT_EQ(dialog.PrivateMessage.Text() + client.Store().GetSetting("PMUsers", "PMUser"), "bob");
    Types(dialog.User, "ann");
    Types(dialog.PrivateMessage, "dear me");
    Presses(dialog.PMSend);
    IsTold("Error:  you can't send a private message to yourself.");
    EXPECT_EQ(dialog.PrivateMessage.Text(), "dear me");
    Selects(dialog.User, 0);
    EXPECT_EQ(dialog.User.Text(), "bob") << "the last recipient is on the list";
    Sends("35:bob;bob:x:;cid:y:;ann:z:;~");
    for (const int row : {2, 3}) {
        Tries([&](UserInput& input) { return input.ClickCell(dialog.msflxPMLines, row, 0); });
        EXPECT_EQ(dialog.User.Text(), "cid") << "a click on a name turns to that person, but not to oneself";
    }
    Sends("35:bob;bob:x^}|#hi^}|#%*|@`@/<Ombrin%*|@22%*|@ann^}|#bob^}|#%*|@`@/<:;~");
    Tries([&](UserInput& input) { return input.ClickCell(dialog.msflxPMLines, 4, 1); });
    Types(dialog.PrivateMessage, "yes");
    Presses(dialog.PMSend);
    EXPECT_EQ(Heard(), "Ombrin:18:ann;Go;10.0.0.5;x^}|#hi^}|#%*|@`@/<Ombrin%*|@22%*|@ann^}|#bob^}|#%*|@`@/<;yes;:~")
        << "nobody puts commands into this user's mouth";
}

TEST_F(Friends, AnIgnoredSenderIsNotNoticedAndUnderAModalFormTheDialogWaits) {
    Chooses(view.UserList, 2, view.IgnoreUser);
    Sends("35:cid;cid:hi:;~");
    EXPECT_EQ(Top(), "");
    EXPECT_EQ(world.Told("sound").size() + world.Told("message notice").size(), 0u);
    Sends("36:Note;~");
    Sends("35:bob;bob:hi:;~");
    Passes(Milliseconds(100));
    EXPECT_EQ(Top(), "MessageBox");
    Answers(BoxResult::Ok);
    Passes(Milliseconds(15));
    EXPECT_EQ(Top(), "PMDialog");
    EXPECT_FALSE(view.PMTimer.On());
}

TEST(EmbeddedClient, ShowsTheDialogModally) {
    PlayedClient embedded;
    embedded.HasChosen();
    embedded.Shows("ann;Go;lobby.example;7777");
    embedded.Accepts();
    embedded.Sends("0:ann;1;~35:bob;bob:one:;~");
    embedded.Sends("35:bob;bob:two:;~");
    EXPECT_TRUE(embedded.Top() == "PMDialog" && embedded.forms.PMDialog.IsModal());
    EXPECT_EQ(embedded.forms.PMDialog.msflxPMLines.Rows(), 3);
}

TEST_F(Friends, ThePaneShowsWhoIsOnLineFirst) {
    const struct {
        const char* message;
        Rows pane;
        std::size_t sounds;
    } kCases[] = {
        {"41:zed;;bob;;Cid;Go;~", {"Cid|Go|" + kCyan, "bob|Offline|-", "zed|Offline|-"}, 0},
        {"41:zed;Chess;~", {"Cid|Go|" + kCyan, "zed|Chess|" + kCyan, "bob|Offline|-"}, 1},
        {"41:zed;Go;~", {"Cid|Go|" + kCyan, "zed|Go|" + kCyan, "bob|Offline|-"}, 1},
        {"41:Cid;;~", {"zed|Go|" + kCyan, "bob|Offline|-", "Cid|Offline|16777215"}, 1},
        {"41:;Go;~", {"zed|Go|" + kCyan, "bob|Offline|-", "Cid|Offline|16777215"}, 1},
    };
    for (const auto& row : kCases) {
        Sends(row.message);
        EXPECT_EQ(Pane(), row.pane) << row.message;
        EXPECT_EQ(world.Told("sound").size(), row.sounds) << row.message;
    }
    EXPECT_EQ(world.Told("sound"), Rows{"BudNotif.wav"});
    EXPECT_EQ(world.Told("buddy notice"), Rows{"zed"});
}

TEST_F(Friends, ABuddyIsAskedForUntilTheNameIsProper) {
    Presses(view.btnAddBuddy);
    for (const auto& [name, refusal] : {std::pair("thirteenchars", "ERROR:  Buddy names cannot exceed 12 characters."),
                                        {"a;b", "ERROR:  Buddy names cannot contain any of the following"}}) {
        Tries([name = name](UserInput& input) { return input.AnswerText(name); });
        IsTold(StartsWith(refusal));
    }
    Tries([&](UserInput& input) { return input.AnswerText("  zed "); });
    EXPECT_EQ(Heard(), "Ombrin:21:ann;zed;:~");
    EXPECT_EQ(Pane(), Rows{"zed|Offline|-"});
    AsksForBuddy(" "); // which asks for nobody
    for (const auto& [name, refusal] : {std::pair("zed", "ERROR:  this buddy is already in your list."),
                                        {"ann", "ERROR:  You can't add yourself as a buddy."}}) {
        AsksForBuddy(name);
        IsTold(refusal);
    }
    Chooses(view.UserList, 2, view.AddBuddy);
    EXPECT_EQ(Heard(), "Ombrin:21:ann;cid;:~");
    Chooses(view.BuddyLV, 1, view.BuddyPMMenu);
    EXPECT_EQ(dialog.User.Text(), "cid");
    for (const BoxResult answer : {BoxResult::No, BoxResult::Yes}) {
        EXPECT_EQ(view.BuddyLV.rows.Count(), 2u);
        Chooses(view.BuddyLV, 1, view.RemoveBuddy);
        Answers(answer);
    }
    EXPECT_EQ(view.BuddyLV.rows.Count(), 1u);
    EXPECT_EQ(Heard(), "Ombrin:22:ann;cid;:~");
}

} // namespace ombrin::test
