#include "hosts/desktop/chat_painter.h"

#include "hosts/desktop/look.h"
#include "hosts/desktop/own_texts.h"
#include "hosts/desktop/rows_model.h"

#include <QAbstractTextDocumentLayout>
#include <QDesktopServices>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QUrl>

namespace ombrin::desktop {

namespace {

/// Web addresses in a line, without the sign that ends the sentence around them.
const QRegularExpression& LinkPattern() {
    static const QRegularExpression pattern(QStringLiteral(R"(\bhttps?://[^\s<>"]*[^\s<>".,;:!?)\]'])"),
                                            QRegularExpression::CaseInsensitiveOption);
    return pattern;
}

class ChatPainter : public Painter {
public:
    ChatPainter(Board& board, FlexGrid& grid, QWidget* parent)
        : Painter(board, grid, new QTextBrowser(parent)), grid(grid) {
        QTextBrowser& view = *Shown();
        view.setOpenLinks(false);
        view.setOpenExternalLinks(false);
        view.setUndoRedoEnabled(false);
        view.setTabChangesFocus(true);
        view.setFont(Look::ChatFont());
        view.setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
        view.setContextMenuPolicy(Qt::DefaultContextMenu);
        view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.setLineWrapMode(QTextEdit::FixedPixelWidth);
        view.viewport()->installEventFilter(this);
        connect(&view, &QTextBrowser::anchorClicked, this, [this](const QUrl& url) { Follow(url); });
    }

private:
    QTextBrowser* Shown() const { return static_cast<QTextBrowser*>(Widget()); }

    using Line = std::pair<std::string, std::string>;

    void ApplyOwn() override {
        std::vector<Line> lines;
        for (int row = 1; row < grid.Rows(); ++row) lines.emplace_back(grid.TextAt(row, 0), grid.TextAt(row, 1));
        if (lines.size() == 1 && lines.front() == Line()) lines.clear(); // the empty line of a cleared grid
        const int width = static_cast<int>(grid.ColWidth(0) / kTwipsPerPixel);
        const int textWidth = static_cast<int>(grid.ColWidth(1) / kTwipsPerPixel);
        const bool anew = width != columnWidth || colour != grid.ForeColour();
        columnWidth = width;
        const int margins = 2 * static_cast<int>(Shown()->document()->documentMargin());
        Shown()->setLineWrapColumnOrWidth(columnWidth + textWidth + margins);
        colour = grid.ForeColour();
        if (!anew && lines == shown) return;
        QScrollBar& bar = *Shown()->verticalScrollBar();
        const bool atEnd = bar.value() >= bar.maximum() - 4;
        const QTextCursor topLine = Shown()->cursorForPosition({0, 0});
        const int topAt = Shown()->cursorRect(topLine).top(), scrolled = bar.value();
        Show(lines, anew ? 0 : Kept(lines));
        shown = std::move(lines);
        // A reader who has scrolled back is left where he is, also when lines above him are gone.
        const int moved = anew ? 0 : Shown()->cursorRect(topLine).top() - topAt;
        bar.setValue(atEnd ? bar.maximum() : scrolled + moved);
    }

    /// Lines at the end of what is shown that are the beginning of what is to be shown.
    std::size_t Kept(const std::vector<Line>& lines) const {
        for (std::size_t gone = 0; gone < shown.size(); ++gone) {
            const std::size_t kept = shown.size() - gone;
            if (kept <= lines.size() &&
                std::equal(shown.begin() + static_cast<std::ptrdiff_t>(gone), shown.end(), lines.begin()))
                return kept;
        }
        return 0;
    }

    void Show(const std::vector<Line>& lines, std::size_t kept) {
        QTextDocument& document = *Shown()->document();
        QTextCursor selection = Shown()->textCursor();
        const int anchor = selection.anchor(), end = selection.position(), length = document.characterCount();
        int removed = 0;
        QTextCursor cursor(&document);
        cursor.beginEditBlock();
        if (kept == 0) {
            document.clear();
            cursor = QTextCursor(&document);
        } else {
            for (std::size_t gone = shown.size() - kept; gone > 0; --gone) {
                cursor.movePosition(QTextCursor::Start);
                cursor.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor);
                cursor.removeSelectedText();
            }
            removed = length - document.characterCount();
            cursor.movePosition(QTextCursor::End);
        }
        QTextBlockFormat block;
        block.setLeftMargin(columnWidth);
        block.setTextIndent(-columnWidth);
        block.setTabPositions({QTextOption::Tab(columnWidth, QTextOption::LeftTab)});
        block.setBottomMargin(2);
        for (std::size_t i = kept; i < lines.size(); ++i) {
            if (i == 0)
                cursor.setBlockFormat(block);
            else
                cursor.insertBlock(block);
            Insert(cursor, lines[i]);
        }
        cursor.endEditBlock();
        if (kept == 0 || anchor == end) return;
        // What is selected up to the end does not grow with the new lines.
        selection.setPosition(std::max(0, anchor - removed));
        selection.setPosition(std::max(0, end - removed), QTextCursor::KeepAnchor);
        Shown()->setTextCursor(selection);
    }

    void Insert(QTextCursor& cursor, const Line& line) const {
        QTextCharFormat sender, text;
        const QString name = OneLine(board.Text(line.first), QLatin1Char(' '));
        const bool own = line.first == board.ownName();
        sender.setForeground(own ? Look::Colours().Shade("text") : Look::SenderColour(name));
        sender.setFontWeight(QFont::DemiBold);
        sender.setFontItalic(own);
        text.setForeground(Look::OnPanel(colour.value_or(Look::kUsualText)));
        cursor.insertText(name + QLatin1Char('\t'), sender);
        const QString said = OneLine(board.Text(line.second), QChar::LineSeparator);
        qsizetype from = 0;
        for (auto match = LinkPattern().globalMatch(said); match.hasNext();) {
            const auto link = match.next();
            cursor.insertText(said.mid(from, link.capturedStart() - from), text);
            QTextCharFormat anchor = text;
            anchor.setAnchor(true);
            anchor.setAnchorHref(link.captured());
            anchor.setFontUnderline(true);
            anchor.setToolTip(Board::Tip(link.captured()));
            cursor.insertText(link.captured(), anchor);
            from = link.capturedEnd();
        }
        cursor.insertText(said.mid(from), text);
    }

    /// A break inside a text begins no line of its own, which would stand there as somebody else's.
    static QString OneLine(QString text, QChar breakSign) {
        text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        return text.replace(QLatin1Char('\n'), breakSign).replace(QLatin1Char('\r'), breakSign);
    }

    /// A press on the selection begins another one; dragging it away would run a loop of Qt's own.
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == Widget()) return Painter::eventFilter(watched, event); // else its viewport
        const auto* press = event->type() == QEvent::MouseButtonPress ? static_cast<QMouseEvent*>(event) : nullptr;
        if (press != nullptr && press->button() == Qt::LeftButton && press->modifiers() == Qt::NoModifier &&
            Shown()->textCursor().hasSelection()) {
            QTextCursor cursor = Shown()->textCursor();
            cursor.clearSelection();
            Shown()->setTextCursor(cursor);
        }
        const auto* release = event->type() == QEvent::MouseButtonRelease ? static_cast<QMouseEvent*>(event) : nullptr;
        if (grid.Click && release != nullptr && release->button() == Qt::LeftButton) {
            const QPoint place = release->position().toPoint();
            // The view goes first, as the client may wait.
            QMetaObject::invokeMethod(
                this, [this, place] { ClickAt(place); }, Qt::QueuedConnection);
        }
        return false;
    }

    /// A click on a cell, unless the mouse has selected text or followed a link.
    void ClickAt(const QPoint& place) {
        if (Shown()->textCursor().hasSelection() || !Shown()->anchorAt(place).isEmpty()) return;
        const QTextBlock block = Shown()->cursorForPosition(place).block();
        const QPointF inText =
            place + QPoint(Shown()->horizontalScrollBar()->value(), Shown()->verticalScrollBar()->value());
        if (!Shown()->document()->documentLayout()->blockBoundingRect(block).contains({inText.x(), inText.y()})) return;
        const auto at = static_cast<std::size_t>(block.blockNumber());
        const int row = block.blockNumber() + 1;
        // Not on a line that has moved since it was painted.
        if (at >= shown.size() || row >= grid.Rows() || shown[at] != Line(grid.TextAt(row, 0), grid.TextAt(row, 1)))
            return;
        const int column = inText.x() < Shown()->document()->documentMargin() + columnWidth ? 0 : 1;
        board.Input([=, this](UserInput& input) { return input.ClickCell(grid, row, column); });
    }

    /// A link comes from somebody else: where it leads is shown before it is opened.
    void Follow(const QUrl& url) {
        auto* box = new QMessageBox(QMessageBox::Question, Say(Own::OpenLink), Say(Own::OpenThisAddress),
                                    QMessageBox::NoButton, Shown());
        box->setTextFormat(Qt::PlainText);
        box->setInformativeText(url.toString(QUrl::FullyEncoded));
        box->setAttribute(Qt::WA_DeleteOnClose);
        const QPushButton* open = box->addButton(Say(Own::Open), QMessageBox::AcceptRole);
        QPushButton* cancel = box->addButton(Say(Own::Cancel), QMessageBox::RejectRole);
        box->setDefaultButton(cancel);
        box->setEscapeButton(cancel);
        connect(open, &QPushButton::clicked, box, [url] { QDesktopServices::openUrl(url); });
        box->open();
    }

    /// Ctrl+C without a selection copies the current line, as the client does it.
    bool TakesKey(QKeyEvent& event) override {
        if (!event.matches(QKeySequence::Copy) || Shown()->textCursor().hasSelection()) return false;
        int key = 'C';
        board.Input([&](UserInput& input) { return input.Key(grid, key, UserInput::kControl); });
        return true;
    }

    static constexpr double kTwipsPerPixel = 15.0;
    FlexGrid& grid;
    std::vector<Line> shown;
    int columnWidth = 0;
    std::optional<Colour> colour;
};

} // namespace

std::unique_ptr<Painter> MakeChatPainter(Board& board, FlexGrid& grid, QWidget* parent) {
    return std::make_unique<ChatPainter>(board, grid, parent);
}

} // namespace ombrin::desktop
