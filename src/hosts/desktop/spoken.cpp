#include "hosts/desktop/spoken.h"

#include <QAccessibleWidget>
#include <QTextBrowser>
#include <algorithm>

namespace ombrin::desktop {

namespace {

/// Lines that are read, not a label, as Qt would have it.
class SpokenChat : public QAccessibleWidget, public QAccessibleTextInterface {
public:
    explicit SpokenChat(QTextBrowser* chat) : QAccessibleWidget(chat, QAccessible::Document), chat(*chat) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = state.multiLine = state.selectableText = true;
        return state;
    }
    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? text(0, characterCount()) : QAccessibleWidget::text(kind);
    }

    QString text(int from, int to) const override { return chat.toPlainText().mid(from, to - from); }
    int characterCount() const override { return chat.document()->characterCount() - 1; }
    int cursorPosition() const override { return chat.textCursor().position(); }
    void setCursorPosition(int at) override { Select(at, at); }
    QRect characterRect(int at) const override {
        const QRect place = chat.cursorRect(CursorAt(at));
        return {chat.viewport()->mapToGlobal(place.topLeft()),
                QSize(chat.fontMetrics().averageCharWidth(), place.height())};
    }
    int offsetAtPoint(const QPoint& point) const override {
        return chat.cursorForPosition(chat.viewport()->mapFromGlobal(point)).position();
    }
    void scrollToSubstring(int from, int) override { setCursorPosition(from); }
    QString attributes(int, int* from, int* to) const override {
        *from = 0;
        *to = characterCount();
        return {};
    }

    int selectionCount() const override { return chat.textCursor().hasSelection() ? 1 : 0; }
    void selection(int, int* from, int* to) const override {
        *from = chat.textCursor().selectionStart();
        *to = chat.textCursor().selectionEnd();
    }
    void addSelection(int from, int to) override { Select(from, to); }
    void setSelection(int, int from, int to) override { Select(from, to); }
    void removeSelection(int) override { setCursorPosition(cursorPosition()); }

private:
    /// Positions come from another program.
    QTextCursor CursorAt(int at) const {
        QTextCursor cursor(chat.document());
        cursor.setPosition(std::clamp(at, 0, characterCount()));
        return cursor;
    }
    void Select(int from, int to) {
        QTextCursor cursor = CursorAt(from);
        cursor.setPosition(std::clamp(to, 0, characterCount()), QTextCursor::KeepAnchor);
        chat.setTextCursor(cursor);
    }

    QTextBrowser& chat;
};

QAccessibleInterface* Make(const QString& kind, QObject* object) {
    if (auto* chat = qobject_cast<QTextBrowser*>(object); kind == QLatin1String("QTextBrowser"))
        return new SpokenChat(chat);
    // By its mark, and no object but a widget: one of a library without type information cannot even be looked at.
    if (object != nullptr && kind == QLatin1String("QWidget") && object->property(kSpokenAsFrame).toBool())
        return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Window);
    return nullptr; // Qt knows
}

} // namespace

void InstallSpoken() { QAccessible::installFactory(Make); }

} // namespace ombrin::desktop
