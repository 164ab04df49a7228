#include "pictures/texts_shown.h"

#include "hosts/desktop/picture_button.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionGroupBox>
#include <QTextBlock>
#include <QTextBrowser>

namespace ombrin::test {

namespace {

/// The part of a window's widget that no widget before it covers. Labels and the like, through which the mouse goes,
/// cover nothing.
QRegion Uncovered(const QWidget& widget, const QWidget& window) {
    QRegion free = widget.rect();
    for (const QWidget* at = &widget; at != &window; at = at->parentWidget()) {
        const QObjectList& children = at->parentWidget()->children();
        for (auto i = children.indexOf(at) + 1; i < children.size(); ++i) {
            const auto* sibling = qobject_cast<const QWidget*>(children[i]);
            if (sibling == nullptr || sibling->isWindow() || !sibling->isVisible()) continue;
            if (sibling->testAttribute(Qt::WA_TransparentForMouseEvents)) continue;
            free -= QRect(widget.mapFrom(&window, sibling->mapTo(&window, QPoint())), sibling->size());
        }
        free &=
            QRect(widget.mapFrom(&window, at->parentWidget()->mapTo(&window, QPoint())), at->parentWidget()->size());
    }
    return free;
}

class Reader {
public:
    explicit Reader(const QWidget& window) : window(window) {}

    void Read(const QWidget& widget) {
        free = Uncovered(widget, window);
        if (free.isEmpty()) return;
        if (const auto* label = qobject_cast<const QLabel*>(&widget)) return ReadLabel(*label);
        if (const auto* button = dynamic_cast<const desktop::PictureButton*>(&widget))
            return Add(widget, button->text(), button->CaptionShownAt());
        if (const auto* button = qobject_cast<const QPushButton*>(&widget))
            return Add(widget, button->text(), Tight(*button, button->rect(), Qt::AlignCenter, button->text()));
        if (const auto* box = qobject_cast<const QCheckBox*>(&widget))
            return ReadMark(*box, QStyle::SE_CheckBoxContents);
        if (const auto* option = qobject_cast<const QRadioButton*>(&widget))
            return ReadMark(*option, QStyle::SE_RadioButtonContents);
        if (const auto* edit = qobject_cast<const QLineEdit*>(&widget)) return ReadEdit(*edit);
        if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) return ReadCombo(*combo);
        if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) return ReadGroup(*group);
        if (const auto* header = qobject_cast<const QHeaderView*>(&widget)) return ReadHeader(*header);
        if (const auto* list = qobject_cast<const QAbstractItemView*>(&widget)) return ReadRows(*list);
        if (const auto* chat = qobject_cast<const QTextBrowser*>(&widget)) return ReadLines(*chat);
        if (const auto* menu = qobject_cast<const QMenu*>(&widget)) return ReadMenu(*menu);
    }

    std::vector<TextShown> texts;

private:
    void Add(const QWidget& widget, const QString& text, const QRect& place, bool enabled = true) {
        if (text.trimmed().isEmpty() || place.isEmpty() || !QRegion(place).subtracted(free).isEmpty()) return;
        texts.push_back({text, {widget.mapTo(&window, place.topLeft()), place.size()}, enabled && widget.isEnabled()});
    }
    static QRect Tight(const QWidget& widget, const QRect& room, int alignment, const QString& text) {
        return widget.fontMetrics().boundingRect(room, alignment | Qt::TextShowMnemonic, text) & room;
    }

    void ReadLabel(const QLabel& label) {
        if (label.pixmap().isNull())
            Add(label, label.text(),
                Tight(label, label.contentsRect(), int(label.alignment()) | (label.wordWrap() ? Qt::TextWordWrap : 0),
                      label.text()));
    }
    void ReadMark(const QAbstractButton& button, QStyle::SubElement contents) {
        QStyleOptionButton option;
        option.initFrom(&button);
        option.text = button.text();
        Add(button, button.text(),
            Tight(button, button.style()->subElementRect(contents, &option, &button), Qt::AlignLeft | Qt::AlignVCenter,
                  button.text()));
    }
    void ReadEdit(const QLineEdit& edit) {
        const QString text = edit.displayText().isEmpty() ? edit.placeholderText() : edit.displayText();
        constexpr int kFrame = 3;
        const QRect inside = edit.rect().adjusted(kFrame, kFrame, -kFrame, -kFrame);
        Add(edit, text, inside.intersected({0, 0, 12 + edit.fontMetrics().horizontalAdvance(text), edit.height()}));
    }
    void ReadCombo(const QComboBox& combo) {
        if (combo.isEditable()) return; // its line is read by itself
        QStyleOptionComboBox option;
        option.initFrom(&combo);
        Add(combo, combo.currentText(),
            combo.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &combo));
    }
    void ReadGroup(const QGroupBox& group) {
        QStyleOptionGroupBox option;
        option.initFrom(&group);
        option.text = group.title();
        option.subControls = QStyle::SC_GroupBoxLabel | QStyle::SC_GroupBoxFrame;
        Add(group, group.title(),
            group.style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, &group));
    }
    void ReadHeader(const QHeaderView& header) {
        free &= header.viewport()->rect();
        for (int at = 0; at < header.count(); ++at) {
            const QRect section(header.sectionViewportPosition(at), 0, header.sectionSize(at), header.height());
            Add(header, header.model()->headerData(at, header.orientation()).toString(),
                (section & header.viewport()->rect()).adjusted(2, 2, -2, -2));
        }
    }
    /// Rows that are shown whole, without their pictures.
    void ReadRows(const QAbstractItemView& list) {
        constexpr int kLeastShown = 8;
        const QAbstractItemModel& model = *list.model();
        const QPoint offset = list.viewport()->pos();
        free &= list.viewport()->geometry();
        for (int row = 0; row < model.rowCount(list.rootIndex()); ++row)
            for (int column = 0; column < model.columnCount(list.rootIndex()); ++column) {
                const QModelIndex index = model.index(row, column, list.rootIndex());
                QRect place = list.visualRect(index);
                if (!index.data(Qt::DecorationRole).isNull()) place.adjust(list.iconSize().width() + 6, 0, 0, 0);
                if (place.left() + kLeastShown > place.right()) continue; // a hidden column
                place = place.translated(offset).adjusted(2, 1, -2, -1);
                if (place.bottom() > list.viewport()->geometry().bottom()) continue;
                Add(list, index.data().toString(), place & list.viewport()->geometry(),
                    index.flags().testFlag(Qt::ItemIsEnabled));
            }
    }
    /// The first line of each run of one colour.
    void ReadLines(const QTextBrowser& chat) {
        const QPoint offset = chat.viewport()->pos();
        free &= chat.viewport()->geometry();
        for (QTextBlock block = chat.document()->begin(); block.isValid(); block = block.next())
            for (auto run = block.begin(); !run.atEnd(); ++run) {
                const QTextFragment part = run.fragment();
                QTextCursor from(block), to(block);
                from.setPosition(part.position());
                to.setPosition(part.position() + std::min(part.length(), 8));
                const QRect start = chat.cursorRect(from), end = chat.cursorRect(to);
                if (start.top() != end.top()) continue; // too near to the end of the line
                Add(chat, part.text(), QRect(start.topLeft(), end.bottomRight()).translated(offset));
            }
    }
    void ReadMenu(const QMenu& menu) {
        for (const QAction* action : menu.actions())
            Add(menu, action->text(), menu.actionGeometry(const_cast<QAction*>(action)).adjusted(6, 1, -6, -1),
                action->isEnabled());
    }

    const QWidget& window;
    QRegion free;
};

} // namespace

std::vector<TextShown> TextsShown(const QWidget& window) {
    Reader reader(window);
    reader.Read(window);
    for (const QWidget* widget : window.findChildren<QWidget*>())
        if (widget->isVisibleTo(&window) && widget->window() == &window) reader.Read(*widget);
    return std::move(reader.texts);
}

} // namespace ombrin::test
