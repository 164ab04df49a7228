#include "server/request.h"

#include "session/wire/codec.h"

namespace ombrin::server {

std::optional<Request> ParseRequest(std::string_view message) {
    constexpr std::string_view kFront = "Ombrin:";
    if (!message.starts_with(kFront)) return std::nullopt;
    message.remove_prefix(kFront.size());

    // Not GetCommand: its rule for a single last character would make good shapes of bad ones.
    const std::size_t codeEnd = message.find(kCodeEnd);
    if (codeEnd == std::string_view::npos) return std::nullopt;
    Request request;
    request.code = message.substr(0, codeEnd);
    std::string_view body = message.substr(codeEnd + 1);
    if (body.empty()) return request;
    request.form = Form::Unreadable;
    if (body.back() != kCodeEnd) return request;
    body.remove_suffix(1);
    if (!body.empty() && body.find(kFieldEnd) == std::string_view::npos) {
        request.form = Form::Text;
        request.text = body;
        return request;
    }
    while (!body.empty()) {
        const std::size_t end = body.find(kFieldEnd);
        if (end == std::string_view::npos || request.count == Request::kMostFields) return request;
        request.fields[request.count++] = body.substr(0, end);
        body.remove_prefix(end + 1);
    }
    request.form = Form::Fields;
    return request;
}

} // namespace ombrin::server
