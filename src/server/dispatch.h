// From a client's message to its handler: one table, a row a code.
#pragma once

#include "server/request.h"
#include "server/service.h"

#include <optional>
#include <string_view>

namespace ombrin::server {

using Handler = void (*)(Service&, Session&, const Request&);

/// Who may send a code.
enum class Standing {
    Anyone,
    NotLoggedOn, ///< what would log on, or make an account
    LoggedOn,
};

/// What a code's message looks like.
struct Shape {
    std::size_t leastFields;
    std::size_t mostFields;
    Form form = Form::Fields;
    bool orEmpty = false; ///< also with nothing behind the code

    bool Fits(const Request& request) const;
};

struct ClientCode {
    std::string_view code;
    Standing standing;
    Shape shape;
    Handler handle;
    std::optional<Line> limit = std::nullopt; ///< the kind of line that this is
    double cost = 1;                          ///< in units of Service::kPace
    std::string_view refusal = {};            ///< the code that ends the client's wait, behind a 36
};

/// Handles one message, given without its "~", and answers what it costs.
double Dispatch(Service& service, Session& session, std::string_view message);

/// 36 with the text, then the code that ends the client's wait for this request, where it waits.
void RefuseRequest(Service& service, Session& session, const Request& request, std::string_view text);

} // namespace ombrin::server
