#include "server/transfer.h"

#include "foundation/text.h"
#include "server/request.h"

#include <algorithm>
#include <array>

namespace ombrin::server {

namespace {

struct TransferCode {
    std::string_view code;
    Form form;
    void (Transfer::*take)(std::string_view text);
    double cost;
};

/// A file is opened and its first buffer read, as often as one likes: some 50 times a second is more than any client.
constexpr double kCostOfFile = 400;

constexpr std::array kTransferCodes{
    TransferCode{"24", Form::Text, &Transfer::Begin, kCostOfFile},
    TransferCode{"25", Form::Empty, &Transfer::GoOn, 1},
    TransferCode{"27", Form::Empty, &Transfer::GiveUp, 1},
};

} // namespace

double Transfer::Take(std::string_view message) {
    const auto request = ParseRequest(message);
    const auto* const row = std::find_if(kTransferCodes.begin(), kTransferCodes.end(), [&](const TransferCode& r) {
        return request && r.code == request->code && r.form == request->form;
    });
    if (row == kTransferCodes.end()) throw TransferError("it sent what is no message of a transfer");
    (this->*row->take)(request->text);
    return row->cost;
}

void Transfer::Begin(std::string_view name) {
    file.reset();
    offered = release.Find(name);
    if (offered == nullptr) throw TransferError(Join("it asked for ", name, ", which is not offered"));
    sent = 0;
    due = 1;
}

void Transfer::GoOn(std::string_view) {
    const std::size_t buffers = (Left() + kBuffer - 1) / kBuffer;
    due = std::min(due + 1, buffers);
}

void Transfer::GiveUp(std::string_view) {
    file.reset();
    offered = nullptr;
    due = 0;
}

std::size_t Transfer::Left() const { return offered == nullptr ? 0 : offered->Size() - sent; }

std::string Transfer::Next() {
    if (due == 0) return "";
    --due;
    const std::size_t size = std::min(Left(), kBuffer);
    std::string bytes;
    if (offered->path.empty()) {
        bytes = offered->content.substr(sent, size);
    } else {
        try {
            if (file == nullptr) file = std::make_unique<DiskFile>(offered->path);
            bytes = file->ReadAt(sent, size);
            if (file->Mark() != offered->mark || bytes.size() != size) throw DiskError("has changed since the start");
        } catch (const DiskError& problem) {
            throw TransferError(Join("the file ", offered->name, " ", std::string_view(problem.what())));
        }
    }
    sent += size;
    if (Left() == 0) file.reset();
    return bytes;
}

} // namespace ombrin::server
