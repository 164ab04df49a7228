#include "hosts/desktop/windows.h"

#include "hosts/desktop/dialog_layouts.h"
#include "hosts/desktop/dialog_window.h"
#include "hosts/desktop/own_texts.h"
#include "hosts/desktop/rows_model.h"
#include "hosts/desktop/scheme.h"

#include <QApplication>
#include <QCloseEvent>
#include <QColorDialog>
#include <QFileDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>
#include <QWindow>

namespace ombrin::desktop {

namespace {

constexpr int kTextWidth = 460; ///< pixels of a box's text before it wraps

/// Beside the dialog's own label: why the connection does not come, and what to check.
class ConnectionWindow : public DialogWindow {
public:
    ConnectionWindow(Form& form, const DialogLayout& layout, Board& board, const Link& link, const Session& marks,
                     QWidget* parent)
        : DialogWindow(form, layout, board, parent), link(link), marks(marks), trouble(new QLabel(this)) {
        trouble->setTextFormat(Qt::PlainText);
        trouble->setWordWrap(true);
        trouble->setProperty("trouble", true);
        trouble->setObjectName(QStringLiteral("whyNot"));
        trouble->hide();
        Grid().addWidget(trouble, Grid().rowCount(), 0, 1, 2);
        board.EachFrame([this] { Look(); });
    }

private:
    void Look() {
        if (!isVisible()) return;
        const QString text = Sentence();
        if (trouble->text() == text) return;
        trouble->setText(text);
        trouble->setVisible(!text.isEmpty());
        Follow();
    }

    QString Sentence() const {
        const QString host = board.Text(marks.m_RemoteHost), port = board.Text(marks.m_RemotePort);
        switch (link.WhyNot()) {
        case ConnectFailure::Refused:
            return Say(Own::Refused).arg(host, port);
        case ConnectFailure::UnknownHost:
            return Say(Own::UnknownHost).arg(host);
        case ConnectFailure::Unreachable:
            return Say(Own::Unreachable).arg(host);
        case ConnectFailure::TimedOut:
            return Say(Own::TimedOut).arg(host);
        case ConnectFailure::None:
            break;
        }
        return {};
    }

    const Link& link;
    const Session& marks;
    QLabel* trouble;
};

class MessageWindow : public FormWindow {
public:
    MessageWindow(MessageBoxForm& box, Board& board, QWidget* parent) : FormWindow(box, board, parent) {
        auto* grid = new QGridLayout(this);
        grid->setContentsMargins(18, 16, 18, 14);
        grid->setSpacing(12);
        if (box.Icon() == BoxIcon::Exclamation) {
            auto* icon = new QLabel(this);
            icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(32, 32));
            grid->addWidget(icon, 0, 0, Qt::AlignTop);
        }
        auto* text = new QLabel(board.Text(box.Text()), this);
        text->setTextFormat(Qt::PlainText);
        text->setWordWrap(true);
        text->setMinimumWidth(std::min(kTextWidth, text->fontMetrics().horizontalAdvance(text->text()) + 8));
        text->setTextInteractionFlags(Qt::TextSelectableByMouse);
        const int column = grid->count(); // of an icon, or of none
        grid->addWidget(text, 0, column, 1, 2 - column);
        auto* line = new QHBoxLayout;
        line->setSpacing(10);
        line->addStretch();
        for (const auto& [result, caption] : Captions(box.Buttons())) {
            auto* button = new QPushButton(caption, this);
            button->setMinimumSize(84, 28);
            button->setDefault(line->count() == 1);
            connect(button, &QPushButton::clicked, this, [this, result = result] {
                this->board.Input([result](UserInput& input) { return input.PressButton(result); });
            });
            line->addWidget(button);
        }
        grid->addLayout(line, 1, 0, 1, 2);
        setAccessibleDescription(text->text());
    }

private:
    static std::vector<std::pair<BoxResult, QString>> Captions(BoxButtons buttons) {
        switch (buttons) {
        case BoxButtons::Ok:
            return {{BoxResult::Ok, Say(Own::Ok)}};
        case BoxButtons::OkCancel:
            return {{BoxResult::Ok, Say(Own::Ok)}, {BoxResult::Cancel, Say(Own::Cancel)}};
        case BoxButtons::YesNo:
            return {{BoxResult::Yes, Say(Own::Yes)}, {BoxResult::No, Say(Own::No)}};
        }
        return {};
    }
};

class InputWindow : public FormWindow {
public:
    InputWindow(InputBoxForm& box, Board& board, QWidget* parent)
        : FormWindow(box, board, parent), answer(new QLineEdit(this)) {
        auto* grid = new QGridLayout(this);
        grid->setContentsMargins(18, 16, 18, 14);
        auto* prompt = new QLabel(board.Text(box.Prompt()), this);
        prompt->setTextFormat(Qt::PlainText);
        prompt->setWordWrap(true);
        prompt->setBuddy(answer);
        setMinimumWidth(kTextWidth);
        grid->addWidget(prompt, 0, 0);
        grid->addWidget(answer, 1, 0);
        auto* line = new QHBoxLayout;
        line->setSpacing(10);
        line->addStretch();
        auto* ok = new QPushButton(Say(Own::Ok), this);
        auto* cancel = new QPushButton(Say(Own::Cancel), this);
        ok->setDefault(true);
        for (QPushButton* button : {ok, cancel}) {
            button->setMinimumSize(84, 28);
            line->addWidget(button);
        }
        grid->addLayout(line, 2, 0);
        connect(ok, &QPushButton::clicked, this, [this] {
            const auto bytes = this->board.Bytes(answer->text());
            if (!bytes) return answer->selectAll();
            this->board.Input([&](UserInput& input) { return input.AnswerText(*bytes); });
        });
        connect(cancel, &QPushButton::clicked, this, [this] { InputWindow::reject(); });
    }

private:
    QLineEdit* answer;
};

/// One of Qt's own choosers inside a window of the client's, so that nothing waits but the client's own loop.
template <class Chooser>
void Embed(Chooser* chooser, FormWindow& window) {
    chooser->setWindowFlags(Qt::Widget);
    chooser->setOption(Chooser::DontUseNativeDialog);
    chooser->setSizeGripEnabled(false);
    (new QVBoxLayout(&window))->addWidget(chooser);
    QObject::connect(chooser, &QDialog::rejected, &window, [&window] { window.close(); });
}

class FileWindow : public FormWindow {
public:
    FileWindow(FileChooserForm& form, Board& board, QWidget* parent) : FormWindow(form, board, parent) {
        auto* chooser = new QFileDialog(this);
        Embed(chooser, *this);
        setWindowTitle(Say(Own::ChooseFile));
        chooser->setFileMode(QFileDialog::ExistingFile);
        if (!form.Pattern().empty()) chooser->setNameFilters({board.Text(form.Pattern()), QStringLiteral("*")});
        connect(chooser, &QFileDialog::fileSelected, this, [this](const QString& file) {
            const auto path = this->board.Bytes(file);
            if (!path) return close(), void(); // its name cannot be held
            this->board.Input([path = *path](UserInput& input) { return input.AnswerFile(path); });
        });
    }
};

class ColourWindow : public FormWindow {
public:
    ColourWindow(ColourChooserForm& form, Board& board, QWidget* parent) : FormWindow(form, board, parent) {
        auto* chooser = new QColorDialog(ToColour(form.Start()), this);
        Embed(chooser, *this);
        setWindowTitle(Say(Own::ChooseColour));
        connect(chooser, &QColorDialog::colorSelected, this, [this](const QColor& colour) {
            const Colour value = colour.red() | colour.green() << 8 | colour.blue() << 16;
            this->board.Input([value](UserInput& input) { return input.AnswerColour(value); });
        });
    }
};

/// A message that arrives while the person is in another program takes no keys from there.
bool MayTakeKeys(const Form& form) { return form.IsModal() || QApplication::activeWindow() != nullptr; }

} // namespace

FormWindow::FormWindow(Form& form, Board& board, QWidget* parent) : QDialog(parent), form(form), board(board) {
    setObjectName(QString::fromStdString(form.Name()));
    setWindowTitle(board.Text(form.Caption()));
}

void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    FormWindow::reject();
}

void FormWindow::reject() {
    Form& model = form; // the window may be gone when this returns
    board.Input([&model](UserInput& input) { return input.Close(model); });
}

Windows::Windows(GameLobby& client, Board& board, MainWindow& main) : client(client), board(board), main(main) {
    client.Stack().SetObserver(this);
    SetOwnLanguage([&client, &board] {
        return board.Text(client.Inis().Read(Localisation::kFile, "CurrentLanguage", "Language")).toStdString();
    });
}

Windows::~Windows() {
    SetOwnLanguage([] { return std::string(); });
    client.Stack().SetObserver(nullptr);
}

FormWindow* Windows::Make(Form& form) {
    // A box stands over the window that it comes from: another box, or a dialog beside the main window.
    QWidget* parent = QApplication::activeModalWidget();
    if (parent == nullptr) parent = dynamic_cast<FormWindow*>(QApplication::activeWindow());
    if (parent == nullptr) parent = &main;
    if (auto* box = dynamic_cast<MessageBoxForm*>(&form)) return new MessageWindow(*box, board, parent);
    if (auto* box = dynamic_cast<InputBoxForm*>(&form)) return new InputWindow(*box, board, parent);
    if (auto* chooser = dynamic_cast<FileChooserForm*>(&form)) return new FileWindow(*chooser, board, parent);
    if (auto* chooser = dynamic_cast<ColourChooserForm*>(&form)) return new ColourWindow(*chooser, board, parent);
    const DialogLayout* layout = LayoutOf(form.Name());
    if (layout == nullptr) return nullptr;
    if (&form == &client.Forms().Connection)
        return new ConnectionWindow(form, *layout, board, client.Connection(), client.Marks(), &main);
    return new DialogWindow(form, *layout, board, &main);
}

void Windows::FormShown(Form& form) {
    if (UsrNmPwIP& logon = client.Forms().UsrNmPwIP; &form == &logon) {
        // Who comes from making an account goes on with it, and not with a second one.
        if (logon.Focus() == &logon.NewAccount && !logon.LogonName.Text().empty() && !logon.Password.Text().empty())
            logon.Connect.SetFocus();
        board.Frame();
        main.ShowLogon(true);
        main.activateWindow();
        Focus(form);
        return;
    }
    FormWindow*& window = windows[&form];
    if (window == nullptr) window = Make(form);
    if (window == nullptr) return;
    board.Frame();
    if (!form.Caption().empty()) window->setWindowTitle(board.Text(form.Caption()));
    window->setWindowModality(form.IsModal() ? Qt::ApplicationModal : Qt::NonModal);
    Place(form, *window);
    window->setAttribute(Qt::WA_ShowWithoutActivating, !MayTakeKeys(form));
    board.Quietly([&] {
        Focus(form);    // first: Qt draws a caret in what had the keys when the window was shown before
        window->show(); // a dialog tells its old focus as if by the Tab key
    });
    FormRaised(form);
}

void Windows::FormRaised(Form& form) {
    QWidget* window = WindowOf(form);
    if (window == nullptr) return;
    window->raise();
    if (MayTakeKeys(form)) window->activateWindow();
    Focus(form);
}

/// In the middle of the main window; one that stays open beside it, where there is room, and then where the person has
/// it.
void Windows::Place(Form& form, QWidget& window) const {
    const bool stays = !form.IsModal();
    if (stays && window.testAttribute(Qt::WA_Moved)) return;
    window.adjustSize();
    const QRect there = main.frameGeometry();
    const QRect room = main.screen()->availableGeometry();
    QPoint place = there.center() - window.rect().center();
    if (stays && there.right() + window.width() < room.right())
        place = {there.right() + 1, there.top()};
    else if (stays && there.left() - window.width() > room.left())
        place = {there.left() - window.width(), there.top()};
    window.move(place);
}

void Windows::Focus(Form& form) {
    const Control* control = form.Focus() != nullptr ? form.Focus() : form.Default;
    if (control == nullptr) return;
    Painter* painter = board.PainterOf(*control);
    if (painter == nullptr) return;
    painter->Widget()->setFocus(Qt::OtherFocusReason);
    board.FocusMovedTo(*control); // what the form chooses next is a move
}

/// A dialog that is hidden before the window system has shown it, as `Connecting` is by a fast server, would still be
/// told that it has the keys, and nothing would take them from it again: with its window gone nobody can tell it.
void Windows::Hide(QWidget& window) {
    window.hide();
    if (window.isModal() && window.windowHandle() != nullptr) window.windowHandle()->destroy();
}

void Windows::FormHidden(Form& form) {
    if (&form == &client.Forms().UsrNmPwIP) return main.ShowLogon(false);
    const auto found = windows.find(&form);
    if (found == windows.end()) return;
    if (found->second != nullptr) Hide(*found->second);
    // The keys go to what is in front now, whether or not a window manager sees to that.
    const Form* top = client.Stack().TopModal();
    QWidget* front = top == nullptr ? nullptr : WindowOf(*top);
    if (front == nullptr && found->second != nullptr) front = found->second->parentWidget();
    (front != nullptr ? front : &main)->activateWindow();
    if (form.KindOfForm() == FormKind::Form) return;
    if (found->second != nullptr) found->second->deleteLater(); // a box is gone with its answer
    windows.erase(found);
}

void Windows::MenuOpened(Menu& menu) {
    auto* shown = new QMenu(&main);
    shown->setAttribute(Qt::WA_DeleteOnClose);
    for (MenuEntry* entry : menu.Entries()) {
        QAction* action = shown->addAction(board.Text(entry->Caption()));
        action->setEnabled(entry->Click != nullptr);
        // The menu closes before the entry acts, as that may open a form and wait.
        QObject::connect(
            action, &QAction::triggered, &main,
            [this, entry] { board.Input([entry](UserInput& input) { return input.Choose(*entry); }); },
            Qt::QueuedConnection);
    }
    shown->popup(board.menuPlace);
}

QWidget* Windows::WindowOf(const Form& form) const {
    const auto found = windows.find(&form);
    return found == windows.end() ? nullptr : found->second;
}

} // namespace ombrin::desktop
