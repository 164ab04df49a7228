#include "server/handlers.h"

#include "server/dispatch.h"

namespace ombrin::server {

void NeverSent(Service& service, Session& session, const Request& request) {
    RefuseRequest(service, session, request, "The server does not take this request here.");
}

} // namespace ombrin::server
