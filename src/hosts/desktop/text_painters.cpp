#include "hosts/desktop/text_painters.h"

#include "hosts/desktop/look.h"
#include "hosts/desktop/own_texts.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyle>
#include <QToolTip>
#include <algorithm>

namespace ombrin::desktop {

namespace {

/// What a line to write in has in common, whether it stands alone or in a combo box.
class WritingPainter : public Painter {
protected:
    WritingPainter(Board& board, TextBox& model, QWidget* widget) : Painter(board, model, widget), box(model) {}

    void WritesIn(QLineEdit& shown) {
        line = &shown;
        if (box.IsPassword()) line->setEchoMode(QLineEdit::Password);
        if (box.MaxLength() != 0) line->setMaxLength(static_cast<int>(box.MaxLength()));
        connect(line, &QLineEdit::textEdited, this, [this](const QString& text) { Edited(text); });
        if (box.Kind() != ControlKind::TextBox) return; // the choice of an entry tells of itself
        // What writes for a person, as a program that takes dictation, sets a text without editing it.
        connect(line, &QLineEdit::textChanged, this, [this] {
            if (line->text() != known) Edited(line->text());
        });
    }

    void ShowText() {
        const QString text = board.Text(box.Text());
        if (line->text() != text) {
            MarkRefused(false);
            known = text;
            line->setText(text);
        }
        if (box.SelLength() > 0 && !line->hasSelectedText())
            line->setSelection(static_cast<int>(box.SelStart()), static_cast<int>(box.SelLength()));
    }

    void ShowColour() {
        if (colour == box.ForeColour()) return;
        colour = box.ForeColour();
        // Named kinds: a tool tip of the box would inherit what is said for all.
        Widget()->setStyleSheet(colour
                                    ? QStringLiteral("QLineEdit, QComboBox, QComboBox QAbstractItemView { color: %1; }")
                                          .arg(Look::OnPanel(*colour).name())
                                    : QString());
    }

    bool TakesKey(QKeyEvent& event) override {
        if (line == nullptr || (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter)) return false;
        // In a line that does nothing with it, it is for the default button of the window.
        if (box.Kind() == ControlKind::TextBox && !box.KeyPress) return false;
        int key = UserInput::kEnter;
        board.Input([&](UserInput& input) { return input.Key(box, key, UserInput::kNoShift); });
        return true;
    }

private:
    /// What the code page cannot hold is taken out again, before the eyes of who typed it; line breaks become blanks.
    void Edited(const QString& text) {
        QString kept;
        const int typedTo = line->cursorPosition();
        int cursor = typedTo;
        for (int at = 0, next = 0; at < text.size(); at = next) {
            next = at + (text.at(at).isHighSurrogate() ? 2 : 1);
            const QString character = text.mid(at, next - at);
            if (character == QLatin1Char('\n') || character == QLatin1Char('\r'))
                kept += QLatin1Char(' ');
            else if (board.Bytes(character))
                kept += character;
            else if (at < typedTo)
                cursor -= next - at;
        }
        MarkRefused(kept.size() != text.size());
        known = kept;
        if (kept != text) {
            line->setText(kept);
            line->setCursorPosition(cursor);
        }
        board.Dirty(box); // where the client refuses the input, its own text is shown again
        board.Input([&](UserInput& input) { return input.Type(box, *board.Bytes(kept)); });
    }

    void MarkRefused(bool refused) {
        if (line->property("refused").toBool() == refused) return;
        line->setProperty("refused", refused);
        line->style()->unpolish(line);
        line->style()->polish(line);
        if (refused) QToolTip::showText(line->mapToGlobal(QPoint(0, line->height())), Say(Own::CannotBeSent), line);
    }

    TextBox& box;
    QLineEdit* line = nullptr;
    QString known; ///< the line's text as the client had or has heard of it
    std::optional<Colour> colour;
};

class TextPainter : public WritingPainter {
public:
    TextPainter(Board& board, TextBox& model, QWidget* parent) : WritingPainter(board, model, new QLineEdit(parent)) {
        WritesIn(*static_cast<QLineEdit*>(Widget()));
    }

private:
    void ApplyOwn() override {
        ShowColour();
        ShowText();
    }
};

/// The style sheet takes the arrow away with the frame.
class Chooser : public QComboBox {
public:
    using QComboBox::QComboBox;

protected:
    void paintEvent(QPaintEvent* event) override {
        QComboBox::paintEvent(event);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(QPalette::ButtonText));
        const QPointF tip(width() - 11, height() / 2.0 + 3);
        painter.drawPolygon(QPolygonF({tip, tip + QPointF(-4, -5), tip + QPointF(4, -5)}));
    }
};

class ComboPainter : public WritingPainter {
public:
    ComboPainter(Board& board, ComboBox& model, QWidget* parent)
        : WritingPainter(board, model, new Chooser(parent)), combo(model) {
        QComboBox& shown = *Shown();
        if (combo.TakesFreeText()) {
            shown.setEditable(true);
            shown.setInsertPolicy(QComboBox::NoInsert);
            shown.setCompleter(nullptr); // it would finish a name that the person means otherwise
            WritesIn(*shown.lineEdit());
        }
        connect(&shown, &QComboBox::activated, this, [this](int row) {
            this->board.Dirty(combo); // a refusal takes the choice back
            this->board.Input([=, this](UserInput& input) { return input.Select(combo, row, true); });
        });
    }

private:
    QComboBox* Shown() const { return static_cast<QComboBox*>(Widget()); }

    void ApplyOwn() override {
        QComboBox& shown = *Shown();
        const QSignalBlocker quiet(shown);
        ShowColour();
        if (list != combo.List()) {
            list = combo.List();
            shown.clear();
            // A list that holds but an empty text offers nothing.
            if (list != std::vector<std::string>{""})
                for (const std::string& entry : list) shown.addItem(board.Text(entry));
            shown.setCurrentIndex(-1);
        }
        const auto chosen = std::find(list.begin(), list.end(), combo.Text());
        const int row = chosen == list.end() ? -1 : static_cast<int>(chosen - list.begin());
        if (combo.TakesFreeText()) return ShowFreeText(row);
        shown.setCurrentIndex(row);
    }

    /// Without a choice where the text is another, so that the arrow keys lead to the list again.
    void ShowFreeText(int row) {
        const int cursor = Shown()->lineEdit()->cursorPosition();
        const bool leaves = row < 0 && Shown()->currentIndex() >= 0;
        if (leaves) Shown()->setCurrentIndex(-1);
        ShowText();
        if (leaves) Shown()->lineEdit()->setCursorPosition(cursor);
    }

    ComboBox& combo;
    std::vector<std::string> list; ///< as it is shown
};

} // namespace

std::unique_ptr<Painter> MakeTextPainter(Board& board, TextBox& box, QWidget* parent) {
    return std::make_unique<TextPainter>(board, box, parent);
}

std::unique_ptr<Painter> MakeComboPainter(Board& board, ComboBox& combo, QWidget* parent) {
    return std::make_unique<ComboPainter>(board, combo, parent);
}

} // namespace ombrin::desktop
