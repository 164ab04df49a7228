#include "server/handlers.h"

#include "server/dispatch.h"
#include "server/names.h"
#include "session/wire/names.h"
#include "session/wire/server_message.h"

namespace ombrin::server {

namespace {

/// Characters: what the client's logon dialog takes, in its box for the password.
constexpr std::size_t kLongestTypedPassword = 20;

/// One logon on its way: it waits its turn, then for the check of its password, and the world may have changed since.
/// The session is held for all that time.
struct Attempt {
    Service& service;
    SessionId session;
    std::string name;
    std::string password;
};

void SendCode(Session& session, std::string_view code) { session.peer.Send(server_message::Bare(code)); }

/// An answer from elsewhere, for a session that may have gone meanwhile.
template <class Answer>
void Answered(Service& service, SessionId id, Answer answer) {
    Session* session = service.Find(id);
    if (session == nullptr) return;
    if (!session->closing) answer(*session);
    service.Release(*session);
}

void AnswerWrong(Service& service, Session& session) {
    service.throttle.Wrong(session.origin, service.Now());
    service.Note(session, "was refused: unknown name or wrong password");
    SendCode(session, "24");
}

void Admit(Service& service, Session& session, std::string_view name) {
    if (Session* other = service.users.Find(name)) {
        if (service.Now() - other->lastHeard < Service::kTakeOver) return SendCode(session, "25");
        service.Dismiss(*other, "was silent, and its user has logged on anew");
    }
    if (service.RefusesWhenFull(session)) return SendCode(session, "23");
    service.LogOn(session, name);
    session.peer.Send(server_message::LobbyList(service.lobbies.Counts()));
    session.heldBack.emplace();
    service.SendConfigured(session);
}

void AnswerRight(Service& service, Session& session, std::string_view name) {
    service.throttle.Right(session.origin);
    Admit(service, session, name);
}

/// False when the name was taken meanwhile or the database refuses.
enum class Stored { Yes, Taken, Failed };
Stored Store(Service& service, Session& session, const Account& account) {
    try {
        if (service.outside.accounts.Count() >= service.configuration.limits.accounts) {
            service.Note(session, "got no account: there are too many");
            return Stored::Failed;
        }
        if (!service.outside.accounts.Add(account)) return Stored::Taken;
        service.outside.log.Line("#", std::to_string(session.id), " created the account ", account.name);
        return Stored::Yes;
    } catch (const StoreError& problem) {
        service.Note(session, "got no account: ", std::string_view(problem.what()));
        return Stored::Failed;
    }
}

std::optional<Account> FindAccount(Service& service, Session& session, std::string_view name) {
    try {
        return service.outside.accounts.Find(name);
    } catch (const StoreError& problem) {
        service.Note(session, std::string_view(problem.what()));
        return std::nullopt;
    }
}

/// An unknown name where accounts are open: the logon makes one.
void OpenAccount(Attempt attempt) {
    Service& service = attempt.service;
    const std::string origin = service.Find(attempt.session)->origin;
    service.outside.passwords.Hash(origin, attempt.password, [attempt](const std::optional<std::string>& hash) {
        Answered(attempt.service, attempt.session, [&](Session& session) {
            if (!hash || Store(attempt.service, session, {attempt.name, *hash}) != Stored::Yes)
                return SendCode(session, "24");
            Admit(attempt.service, session, attempt.name);
        });
    });
}

/// As slow as a check, so that nobody learns which names there are.
void RefuseSlowly(Attempt attempt) {
    const std::string origin = attempt.service.Find(attempt.session)->origin;
    attempt.service.outside.passwords.Hash(origin, attempt.password, [attempt](const std::optional<std::string>&) {
        Answered(attempt.service, attempt.session, [&](Session& session) { AnswerWrong(attempt.service, session); });
    });
}

void Check(Attempt attempt) {
    Service& service = attempt.service;
    Session& session = *service.Find(attempt.session);
    service.Hold(session);
    const auto account = FindAccount(service, session, attempt.name);
    if (!account && service.access.openAccounts && AcceptableName(attempt.name)) return OpenAccount(std::move(attempt));
    // In another spelling the client would not know its own name in what the server sends.
    if (!account || account->name != attempt.name) return RefuseSlowly(std::move(attempt));
    service.outside.passwords.Verify(session.origin, attempt.password, account->passwordHash, [attempt](bool right) {
        Answered(attempt.service, attempt.session, [&](Session& asking) {
            if (right)
                AnswerRight(attempt.service, asking, attempt.name);
            else
                AnswerWrong(attempt.service, asking);
        });
    });
}

} // namespace

void TellLobbyNames(Service& service, Session& session, const Request&) {
    session.peer.Send(server_message::LobbyNames(service.lobbies.Names()));
    service.Dismiss(session, "asked for the lobby names");
}

void LogOn(Service& service, Session& session, const Request& request) {
    Attempt attempt{service, session.id, std::string(request.fields[0]), std::string(request.fields[3])};
    if (attempt.name.size() > kNameLength || attempt.password.size() > kLongestTypedPassword)
        return AnswerWrong(service, session);
    const auto wait = service.throttle.Wait(session.origin, service.Now());
    if (!wait) return SendCode(session, "23");
    if (*wait == Milliseconds(0)) return Check(std::move(attempt));
    service.Note(session, "has to wait: too many wrong passwords from its address");
    service.HoldFor(session, *wait, [attempt](Session& waited) {
        if (!waited.closing) Check(attempt);
    });
}

void CreateAccount(Service& service, Session& session, const Request& request) {
    const std::string name(Trim(request.fields[0]));
    const std::string password(Trim(request.fields[1]));
    if (!AcceptableName(name)) return SendCode(session, "28");
    if (!AcceptablePassword(password)) return SendCode(session, "29");
    if (Trim(request.fields[2]) != password) return SendCode(session, "30");
    if (FindAccount(service, session, name)) return SendCode(session, "31");
    service.Hold(session);
    service.outside.passwords.Hash(
        session.origin, password, [&service, id = session.id, name, password](const std::optional<std::string>& hash) {
            Answered(service, id, [&](Session& asking) {
                if (!hash) {
                    service.Note(asking, "got no account: no memory for the password's hash");
                    return SendCode(asking, "32");
                }
                switch (Store(service, asking, {name, *hash})) {
                case Stored::Yes:
                    return asking.peer.Send(server_message::AccountCreated(name, password));
                case Stored::Taken:
                    return SendCode(asking, "31");
                case Stored::Failed:
                    return SendCode(asking, "32");
                }
            });
        });
}

} // namespace ombrin::server
