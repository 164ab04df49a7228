#include "server/net/connection.h"

#include "server/net/listener.h"

#include <asio/buffer.hpp>
#include <asio/error.hpp>
#include <asio/post.hpp>

namespace ombrin::server {

namespace {

/// In bytes: a buffer that a burst has made larger is given back.
constexpr std::size_t kKeptCapacity = 16U << 10U;
/// For a closing connection to take its last bytes and say goodbye itself.
constexpr auto kClosingTime = std::chrono::seconds(5);

bool WouldBlock(const asio::error_code& problem) {
    return problem == asio::error::would_block || problem == asio::error::try_again;
}

} // namespace

Connection::Connection(asio::ip::tcp::socket socket, std::string origin, Surroundings& around)
    : socket(std::move(socket)), closing(this->socket.get_executor()), origin(std::move(origin)), around(around) {}

void Connection::Start(std::string address) {
    asio::error_code problem;
    socket.non_blocking(true, problem);
    if (!problem) socket.set_option(asio::ip::tcp::no_delay(true), problem);
    EnableKeepAlive(socket.native_handle());
    asio::error_code gone; // its end follows
    const std::string reached = PlainAddress(socket.local_endpoint(gone).address()).to_string();
    session = &around.service.Connected(*this, {std::move(address), origin, reached});
    if (problem) return End(problem.message());
    AwaitInput();
}

void Connection::CheckPeer() {
    if (state != State::Ended && watch.Gone(LookAt(socket.native_handle()))) End("its peer does not answer any more");
}

void Connection::AwaitInput() {
    if (reading || state == State::Ended) return;
    reading = true;
    socket.async_wait(asio::ip::tcp::socket::wait_read, [self = shared_from_this()](const asio::error_code& problem) {
        self->reading = false;
        if (self->state == State::Ended) return;
        if (problem)
            self->End(problem.message());
        else
            self->Read();
    });
}

void Connection::Read() {
    asio::error_code problem;
    const std::size_t size = socket.read_some(asio::buffer(around.input), problem);
    if (WouldBlock(problem)) return AwaitInput();
    if (problem) {
        Flush(); // a peer may have ended its own half only
        return End(problem == asio::error::eof ? "closed by the client" : problem.message());
    }
    if (state == State::Open) cutter.Append({around.input.data(), size});
    Process();
}

void Connection::Process() {
    if (processing) return;
    processing = true;
    while (Listening()) {
        const auto piece = cutter.Next();
        if (!piece) break;
        if (piece->tooLong)
            around.service.ReceivedTooLong(*session);
        else
            around.service.Receive(*session, piece->text);
    }
    processing = false;
    if (state == State::Open && cutter.Runaway()) return End("a message without an end, beyond 1 MiB");
    if (state == State::Closing || Listening()) AwaitInput();
}

void Connection::Send(std::string_view message) {
    if (state != State::Open || dropped) return;
    if (Waiting().size() + message.size() > kMostWaiting) return Drop();
    output += message;
    WantFlush();
}

/// The service is in the middle of something: the end waits until it is through.
void Connection::Drop() {
    dropped = true;
    asio::post(socket.get_executor(),
               [self = shared_from_this()] { self->End("it does not read what it is sent, 4 MiB by now"); });
}

void Connection::Close() {
    if (state != State::Open) return;
    state = State::Closing;
    closing.expires_after(kClosingTime);
    closing.async_wait([self = shared_from_this()](const asio::error_code& problem) {
        if (!problem) self->End("closed by the server");
    });
    WantFlush();
    AwaitInput(); // what still comes is thrown away; the end that follows it is what counts
}

void Connection::Continue() {
    // Not at once: the service may be in the middle of something.
    asio::post(socket.get_executor(), [self = shared_from_this()] {
        if (self->state == State::Open) self->Process();
    });
}

void Connection::WantFlush() {
    if (flushing) return;
    flushing = true;
    around.outlet.Add(shared_from_this());
}

void Connection::Flush() {
    flushing = false;
    if (state == State::Ended) return;
    while (!Waiting().empty()) {
        asio::error_code problem;
        written += socket.write_some(asio::buffer(Waiting()), problem);
        if (WouldBlock(problem)) return AwaitRoom();
        if (problem) return End(problem.message());
    }
    output.clear();
    written = 0;
    if (output.capacity() > kKeptCapacity) output.shrink_to_fit();
    if (state != State::Closing) return;
    asio::error_code ignored; // an end that the peer was faster with
    socket.shutdown(asio::ip::tcp::socket::shutdown_send, ignored);
}

void Connection::AwaitRoom() {
    flushing = true;
    if (written > output.size() / 2) { // not each time: moving what waits is work that a slow reader could ask for
        output.erase(0, written);
        written = 0;
    }
    socket.async_wait(asio::ip::tcp::socket::wait_write, [self = shared_from_this()](const asio::error_code& problem) {
        if (!problem) self->Flush();
    });
}

void Connection::End(std::string_view why) {
    if (state == State::Ended) return;
    state = State::Ended;
    asio::error_code ignored; // the socket is gone in any case
    socket.close(ignored);
    closing.cancel();
    around.service.Note(*session, "ends: ", why);
    around.service.Ended(*session);
    session = nullptr;
    around.ended(shared_from_this());
}

} // namespace ombrin::server
