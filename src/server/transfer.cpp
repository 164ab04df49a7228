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

/// A file is opened and a buffer of it read; a client rests between two files.
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
    GiveUp({});
    offered = release.Find(name);
    if (offered == nullptr) throw TransferError(Join("it asked for ", name, ", which is not offered"));
    sent = 0;
    GoOn({});
}

void Transfer::GoOn(std::string_view) {
    if (offered != nullptr) due = std::min(due + kBuffer, offered->Size() - sent);
}

void Transfer::GiveUp(std::string_view) {
    file.reset();
    offered = nullptr;
    due = 0;
}

std::string Transfer::Piece() {
    if (due == 0) return "";
    const std::size_t size = std::min(due, kBuffer);
    if (offered->path.empty()) return offered->content.substr(sent, size);
    try {
        if (file == nullptr) file = std::make_unique<DiskFile>(offered->path);
        std::string bytes = file->ReadAt(sent, size);
        if (file->Mark() != offered->mark || bytes.size() != size) throw DiskError("has changed since the start");
        return bytes;
    } catch (const DiskError& problem) {
        throw TransferError(Join("the file ", offered->name, " ", std::string_view(problem.what())));
    }
}

void Transfer::Took(std::size_t size) {
    sent += size;
    due -= size;
    if (sent == offered->Size()) file.reset();
}

} // namespace ombrin::server
