// The main control as a widget of Qt, as OmbrinExe shows it: for a page of another program.
#pragma once

#include <ombrin/export.h>

#include <QString>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <memory>

namespace ombrin::qt {

/// One in a program, as it sets the program's style. It runs on Qt's own loop; its dialogs are windows over it. A
/// dialog that is open waits on the stack: call RequestEnd and delete the widget later, never from inside a handler.
class OMBRIN_API LobbyWidget : public QWidget {
public:
    /// `home` is the folder that everything of the client lies in; empty for the user's own. Raises std::exception for
    /// a folder that cannot be used.
    explicit LobbyWidget(const QString& home, QWidget* parent = nullptr);
    ~LobbyWidget() override;

    /// The host must take it away. Raised from inside a routine that still finishes its steps: only note it.
    std::function<void()> CloseClient;

    /// Starts the session once the loop runs: with a record `<user>;<lobby>;<host>;<port>` without a dialog, else with
    /// the logon dialogs. Once in a widget's life.
    void Start(const QString& userData = {});
    /// Every open dialog closes, and nothing waits any more.
    void RequestEnd();

    QString CurrentLobby() const;
    QStringList UsersOfLobby() const;
    bool IsConnected() const;

private:
    struct OMBRIN_INSIDE Parts;
    std::unique_ptr<Parts> parts;
};

} // namespace ombrin::qt
