// One connection of the update port. The input's bytes arrive in steps that the byte 255 ends; after each, the socket
// takes as much as the step's first byte says. Of a file nothing else goes out than its own bytes, from its first on,
// and never more than there are.
#include "fuzz_target.h"

#include "server/message_cutter.h"
#include "server/transfer.h"

namespace ombrin::fuzz {

namespace {

using namespace server;

constexpr std::size_t kBuffer = Transfer::kBuffer;

OfferedFile File(std::string name, std::size_t size) {
    OfferedFile file{std::move(name), 1, "1.00", "", {}, ""};
    for (std::size_t i = 0; i < size; ++i) file.content += static_cast<char>(i % 251);
    return file;
}

const Release& Offered() {
    static const Release release{{File("a.b", 1), File("b.c", kBuffer), File("c.d", kBuffer * 2 + 1)}, ""};
    return release;
}

class FuzzedTransfer {
public:
    void Run(std::string_view input) {
        try {
            while (!input.empty()) Step(TakePiece(input));
        } catch (const TransferError&) { // the end of the connection
        }
    }

private:
    void Step(std::string_view step) {
        if (step.empty()) return;
        cutter.Append(step.substr(1));
        while (const auto piece = cutter.Next()) {
            transfer.Take(piece->text);
            Follow(piece->text);
        }
        if (!transfer.Due()) return Require(transfer.Piece().empty(), "what goes out was due");
        const std::size_t room = static_cast<unsigned char>(step[0]) * std::size_t{4'096};
        const std::string bytes = transfer.Piece().substr(0, room);
        Require(bytes.size() <= allowed, "a buffer for each request at most");
        Require(file != nullptr, "a file was asked for");
        Require(bytes == file->content.substr(sent, bytes.size()), "the file's own bytes");
        transfer.Took(bytes.size());
        sent += bytes.size();
        allowed -= bytes.size();
    }

    /// What the message allows, worked out anew.
    void Follow(std::string_view message) {
        if (message == "Ombrin:25:") {
            allowed += file == nullptr ? 0 : kBuffer;
            return;
        }
        file = nullptr;
        allowed = 0;
        if (message == "Ombrin:27:") return;
        for (const OfferedFile& offered : Offered().files)
            if (message == "Ombrin:24:" + offered.name + ":") file = &offered;
        Require(file != nullptr, "nothing else is a message");
        sent = 0;
        allowed = kBuffer;
    }

    MessageCutter cutter;
    Transfer transfer{Offered()};
    const OfferedFile* file = nullptr;
    std::size_t sent = 0;
    std::size_t allowed = 0;
};

} // namespace

void Try(std::string_view input) { FuzzedTransfer().Run(input); }

} // namespace ombrin::fuzz
