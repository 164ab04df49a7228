#include "server/net/update_connection.h"

#include <asio/buffer.hpp>
#include <asio/error.hpp>

namespace ombrin::server {

namespace {

bool WouldBlock(const asio::error_code& problem) {
    return problem == asio::error::would_block || problem == asio::error::try_again;
}

} // namespace

UpdateConnection::UpdateConnection(asio::ip::tcp::socket socket, std::string origin, Surroundings& around)
    : socket(std::move(socket)), pause(this->socket.get_executor()), origin(std::move(origin)), around(around),
      transfer(around.release), pace(kPace, around.alarms.Now()), lastHeard(around.alarms.Now()) {}

void UpdateConnection::Start(std::string who, Milliseconds wait) {
    name = std::move(who);
    asio::error_code problem;
    socket.non_blocking(true, problem);
    if (!problem) socket.set_option(asio::ip::tcp::no_delay(true), problem);
    EnableKeepAlive(socket.native_handle());
    if (problem) return End(problem.message());
    ReadAfter(wait);
}

void UpdateConnection::Check() {
    if (ended) return;
    if (watch.Gone(LookAt(socket.native_handle()))) return End("its peer does not answer any more");
    if (around.alarms.Now() - lastHeard >= (spoken ? kSilence : kSilenceAtFirst)) End("was silent for too long");
}

void UpdateConnection::ReadAfter(Milliseconds wait) {
    if (wait <= Milliseconds(0)) return AwaitInput();
    pause.expires_after(wait);
    pause.async_wait([self = shared_from_this()](const asio::error_code& problem) {
        if (!problem && !self->ended) self->Process();
    });
}

void UpdateConnection::AwaitInput() {
    socket.async_wait(asio::ip::tcp::socket::wait_read, [self = shared_from_this()](const asio::error_code& problem) {
        if (self->ended) return;
        if (problem)
            self->End(problem.message());
        else
            self->Read();
    });
}

void UpdateConnection::Read() {
    asio::error_code problem;
    const std::size_t size = socket.read_some(asio::buffer(around.input), problem);
    if (WouldBlock(problem)) return AwaitInput();
    if (problem) return End(problem == asio::error::eof ? "closed by the client" : problem.message());
    cutter.Append({around.input.data(), size});
    Process();
}

/// One step at a time: until what it costs is made up for, nothing more is read.
void UpdateConnection::Process() {
    Milliseconds wait{0};
    try {
        while (wait == Milliseconds(0)) {
            const auto piece = cutter.Next();
            if (!piece) break;
            spoken = true;
            lastHeard = around.alarms.Now();
            wait = pace.Spend(transfer.Take(piece->text), lastHeard);
        }
    } catch (const TransferError& problem) {
        return End(problem.what());
    }
    if (cutter.Runaway()) return End("a message without an end, beyond 1 MiB");
    Write();
    if (!ended) ReadAfter(wait);
}

/// A piece a turn, so that one that reads fast does not keep the others waiting.
void UpdateConnection::Write() {
    if (writing || !transfer.Due()) return;
    asio::error_code problem;
    try {
        transfer.Took(socket.write_some(asio::buffer(transfer.Piece()), problem));
    } catch (const TransferError& changed) {
        return End(changed.what());
    }
    if (problem && !WouldBlock(problem)) return End(problem.message());
    if (transfer.Due()) AwaitRoom();
}

void UpdateConnection::AwaitRoom() {
    writing = true;
    socket.async_wait(asio::ip::tcp::socket::wait_write, [self = shared_from_this()](const asio::error_code& problem) {
        self->writing = false;
        if (!problem && !self->ended) self->Write();
    });
}

void UpdateConnection::End(std::string_view why) {
    if (ended) return;
    ended = true;
    around.log.Line(name, " ends: ", why);
    asio::error_code ignored; // the socket is gone in any case
    socket.close(ignored);
    pause.cancel();
    around.ended(shared_from_this());
}

} // namespace ombrin::server
