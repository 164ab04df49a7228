#include "hosts/desktop/dialog_window.h"

#include "hosts/desktop/own_texts.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace ombrin::desktop {

namespace {

constexpr int kBetween = 10; // pixels between controls that stand side by side

void TakeUsualSpaces(QGridLayout& rows) {
    rows.setHorizontalSpacing(kBetween);
    rows.setVerticalSpacing(8);
    rows.setColumnStretch(1, 1);
}

QHBoxLayout* Line() {
    auto* line = new QHBoxLayout;
    line->setSpacing(kBetween);
    return line;
}

QWidget* AsButton(QWidget* button) {
    button->setMinimumSize(84, 28);
    return button;
}

} // namespace

DialogWindow::DialogWindow(Form& form, const DialogLayout& layout, Board& board, QWidget* parent)
    : FormWindow(form, board, parent), grid(new QGridLayout(this)) {
    grid->setContentsMargins(16, 14, 16, 14);
    TakeUsualSpaces(*grid);
    for (const DialogRow& row : layout.rows) Add(row);
    setMinimumWidth(layout.width);
    if (auto* button = qobject_cast<QPushButton*>(WidgetNamed(layout.defaultButton, this))) button->setDefault(true);
    board.EachFrame([this] { Follow(); });
}

QSize DialogWindow::sizeHint() const {
    // A text that wraps would ask for a width of its own.
    return {std::max(minimumWidth(), grid->totalMinimumSize().width()), FormWindow::sizeHint().height()};
}

void DialogWindow::showEvent(QShowEvent* event) {
    FormWindow::showEvent(event);
    settled = false;
    board.Schedule();
    if (focusWidget() != nullptr) return;
    // Qt would begin with the first option, and make that the one of its group that Tab finds.
    for (QRadioButton* option : findChildren<QRadioButton*>())
        if (option->isChecked() && option->isEnabled()) option->setFocus();
}

void DialogWindow::Follow() {
    if (!isVisible()) return;
    if (const QString title = board.Text(form.Caption()); windowTitle() != title) setWindowTitle(title);
    const int before = std::exchange(needed, grid->hasHeightForWidth() ? grid->totalHeightForWidth(width()) : 0);
    const int place = height();
    const bool fits = needed == before || (place >= needed && place != before); // or a person has made it higher
    if (!fits) {
        resize(width(), needed);
        if (!settled) move(x(), y() - (height() - place) / 2); // it was put in the middle before it had its texts
    }
    settled = true;
}

QWidget* DialogWindow::WidgetNamed(std::string_view name, QWidget* parent) {
    Control* control = form.Find(name);
    if (control == nullptr) return nullptr;
    Painter* painter = board.PainterOf(*control);
    return (painter != nullptr ? *painter : board.Paint(*control, parent)).Widget();
}

void DialogWindow::Add(const DialogRow& row) {
    QWidget* face = row.frame.empty() ? this : WidgetNamed(row.frame, this);
    auto& rows = *static_cast<QGridLayout*>(face->layout());
    switch (row.kind) {
    case DialogRow::Kind::Wide:
        for (const auto name : row.controls) rows.addWidget(WidgetNamed(name, face), rows.rowCount(), 0, 1, 2);
        break;
    case DialogRow::Kind::Grow: {
        const int at = rows.rowCount();
        QWidget* list = WidgetNamed(row.controls.front(), face);
        rows.addWidget(list, at, 0, 1, 2);
        list->setMinimumHeight(180);
        list->setAccessibleName(board.Text(form.Caption())); // it is what that names
        rows.setRowStretch(at, 1);
        break;
    }
    case DialogRow::Kind::Pair:
        AddPair(row, *face, rows);
        break;
    case DialogRow::Kind::Entry:
        AddEntry(row);
        break;
    case DialogRow::Kind::Buttons:
        AddButtons(row, *face, rows);
        break;
    case DialogRow::Kind::Frames:
        AddFrames(row);
        break;
    case DialogRow::Kind::Passing:
        AddPassing(row);
        break;
    case DialogRow::Kind::Progress:
        AddProgress(row);
        break;
    case DialogRow::Kind::Pictured:
        AddPictured(row);
        break;
    }
}

/// The controls of a group are children of their frame: a screen reader tells the group with the first of them.
void DialogWindow::AddFrames(const DialogRow& row) {
    QHBoxLayout* line = Line();
    for (const auto name : row.controls) {
        QWidget* frame = WidgetNamed(name, this);
        TakeUsualSpaces(*new QGridLayout(frame));
        line->addWidget(frame, 1);
    }
    grid->addLayout(line, grid->rowCount(), 0, 1, 2);
}

void DialogWindow::AddPair(const DialogRow& row, QWidget& face, QGridLayout& rows) {
    const int at = rows.rowCount();
    QWidget* name = WidgetNamed(row.controls[0], &face);
    QWidget* field = WidgetNamed(row.controls[1], &face);
    rows.addWidget(name, at, 0);
    if (row.controls.size() == 2) {
        rows.addWidget(field, at, 1);
    } else {
        QHBoxLayout* line = Line();
        const bool keepsItsWidth = field->maximumWidth() < QWIDGETSIZE_MAX;
        line->addWidget(field, 1, keepsItsWidth ? Qt::AlignLeft : Qt::Alignment());
        line->addWidget(AsButton(WidgetNamed(row.controls[2], &face)));
        rows.addLayout(line, at, 1);
    }
    if (auto* label = qobject_cast<QLabel*>(name)) {
        label->setWordWrap(false);
        label->setBuddy(field);
    } else { // a field that the box brings up; its place is kept for it
        field->setAccessibleName(board.Text(static_cast<CheckBox*>(form.Find(row.controls[0]))->Caption()));
        QSizePolicy policy = field->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        field->setSizePolicy(policy);
    }
}

void DialogWindow::AddEntry(const DialogRow& row) {
    QHBoxLayout* line = Line();
    auto* field = qobject_cast<QLineEdit*>(WidgetNamed(row.controls[0], this));
    field->setPlaceholderText(Say(Own::YourMessage));
    field->setAccessibleName(Say(Own::YourMessage));
    field->setMinimumHeight(28);
    line->addWidget(field, 1);
    line->addWidget(AsButton(WidgetNamed(row.controls[1], this)));
    grid->addLayout(line, grid->rowCount(), 0, 1, 2);
}

void DialogWindow::AddButtons(const DialogRow& row, QWidget& face, QGridLayout& rows) {
    QHBoxLayout* line = Line();
    line->addStretch();
    for (const auto name : row.controls) line->addWidget(AsButton(WidgetNamed(name, &face)));
    rows.addLayout(line, rows.rowCount(), 0, 1, 2);
}

void DialogWindow::AddPassing(const DialogRow& row) {
    auto* label = qobject_cast<QLabel*>(WidgetNamed(row.controls.front(), this));
    label->setWordWrap(false);
    label->setMinimumHeight(label->fontMetrics().height());
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    grid->addWidget(label, grid->rowCount(), 0, 1, 2);
}

void DialogWindow::AddProgress(const DialogRow& row) {
    auto* label = qobject_cast<QLabel*>(WidgetNamed(row.controls[0], this));
    QWidget* bar = WidgetNamed(row.controls[1], this);
    label->ensurePolished(); // with the font of the look
    label->setMinimumHeight(2 * label->fontMetrics().lineSpacing());
    label->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
    label->setBuddy(bar);
    grid->addWidget(label, grid->rowCount(), 0, 1, 2);
    grid->addWidget(bar, grid->rowCount(), 0, 1, 2);
}

void DialogWindow::AddPictured(const DialogRow& row) {
    const int at = grid->rowCount();
    grid->addWidget(WidgetNamed(row.controls[0], this), at, 0, Qt::AlignTop);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(4);
    for (std::size_t i = 1; i < row.controls.size(); ++i) texts->addWidget(WidgetNamed(row.controls[i], this));
    WidgetNamed(row.controls[1], this)->setProperty("heading", true);
    grid->addLayout(texts, at, 1);
}

} // namespace ombrin::desktop
