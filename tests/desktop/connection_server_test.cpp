// The real server dies under the real windows, and comes back.
#include "desktop/stage.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/posix_network.h"
#include "server/server_process.h"

#include <QWidget>
#include <arpa/inet.h>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/socket.h>

namespace ombrin::test {

namespace {

/// Takes a port that nobody listens on out of those that the system gives away.
Descriptor KeepFree(std::uint16_t port) {
    Descriptor kept(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const int on = 1;
    setsockopt(kept.Number(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    inet_pton(AF_INET, "127.0.0.1", &address.sin_addr);
    EXPECT_EQ(bind(kept.Number(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    return kept;
}

TEST(LostServer, OnePressLeadsBackToTheLobbyOfBefore) {
    const server::test::ScratchFolder home;
    auto server = std::make_unique<server::test::ServerProcess>(home.path, std::vector<std::string>{"--open-accounts"},
                                                                R"({"lobbies": ["Go", "Chess", "Quake3"]})");
    const std::uint16_t port = server->port;
    ASSERT_NE(port, 0);
    Descriptor kept;
    Stage stage("English",
                [](EventLoop& loop) -> std::unique_ptr<Network> { return std::make_unique<PosixNetwork>(loop); });
    stage.client.Inis().Write("AV.ini", "GameFilter", "DisplayedGames", "Go;Chess;Quake3;");
    const auto bar = [&] { return stage.window.findChild<QWidget*>(QStringLiteral("connectionBar")); };
    const auto isIn = [&](const std::string& lobby) {
        return [&, lobby] {
            return stage.client.Marks().m_CurrentLobby == lobby && stage.view.Enabled() &&
                   stage.view.UserList.rows.Count() == 1;
        };
    };

    stage.Step([&] {
        for (const auto& [box, text] : {std::pair(&stage.forms.UsrNmPwIP.LogonName, std::string("ann")),
                                        {&stage.forms.UsrNmPwIP.Password, "pw"},
                                        {&stage.forms.UsrNmPwIP.HostMachine, "127.0.0.1"},
                                        {&stage.forms.UsrNmPwIP.HTTPPort, std::to_string(port)}})
            stage.board.Input([&, box = box, text = text](UserInput& input) { return input.Type(*box, text); });
    });
    stage.Clicks(stage.forms.UsrNmPwIP.Connect);
    stage.Until(isIn("Go"), "the first lobby");
    stage.DoubleClicksRow(stage.view.lbLobbies, 2);
    stage.Until(isIn("Quake3"), "the other lobby");
    stage.Step([&] {
        server->Signal(SIGKILL);
        EXPECT_EQ(server->Wait(), -SIGKILL);
        kept = KeepFree(port);
    });
    stage.Until([&] { return bar() != nullptr && bar()->isVisible(); }, "the bar");
    stage.Step([&] {
        EXPECT_TRUE(isIn("Quake3")()) << "the view stays as it was";
        server = std::make_unique<server::test::ServerProcess>(
            home.path, std::vector<std::string>{"--open-accounts", "--port", std::to_string(port)});
        EXPECT_EQ(server->port, port);
    });
    const auto button = [&] { return stage.window.findChild<QWidget*>(QStringLiteral("logOnAgain")); };
    stage.Click(button, [&] { return button()->rect().center(); });
    stage.Until([&] { return !bar()->isVisible() && isIn("Quake3")(); }, "his own lobby again");
    stage.Step([&] {
        const std::string log = server->Log(); // of both lives
        const std::size_t first = log.find("ann entered Quake3");
        EXPECT_NE(log.find("ann entered Quake3", first + 1), std::string::npos) << log;
    });
    EXPECT_TRUE(stage.Run());
}

} // namespace

} // namespace ombrin::test
