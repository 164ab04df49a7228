#include "hosts/desktop/painters.h"

#include "hosts/desktop/chat_painter.h"
#include "hosts/desktop/list_painter.h"
#include "hosts/desktop/look.h"
#include "hosts/desktop/picture_button.h"
#include "hosts/desktop/rows_model.h"
#include "hosts/desktop/text_painters.h"
#include "ui/skins.h"

#include <QCheckBox>
#include <QEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>

namespace ombrin::desktop {

namespace {

/// A caption as a button takes it: "&" marks the mnemonic in both worlds.
class LabelPainter : public Painter {
public:
    LabelPainter(Board& board, Label& model, QWidget* parent)
        : Painter(board, model, new QLabel(parent)), label(model) {
        Shown()->setAttribute(Qt::WA_TransparentForMouseEvents); // in a small window it reaches over buttons
        Shown()->setTextFormat(Qt::PlainText);
        Shown()->setWordWrap(true);
        Shown()->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    }

private:
    QLabel* Shown() const { return static_cast<QLabel*>(Widget()); }
    void ApplyOwn() override {
        Shown()->setText(board.Text(label.Caption()));
        if (colour == label.ForeColour()) return;
        colour = label.ForeColour(); // of a skin, which knows its background
        Shown()->setStyleSheet(colour ? QStringLiteral("QLabel { color: %1; }").arg(ToColour(*colour).name())
                                      : QString());
    }
    Label& label;
    std::optional<Colour> colour;
};

class StatusPainter : public Painter {
public:
    StatusPainter(Board& board, StatusBar& model, QWidget* parent)
        : Painter(board, model, new QLabel(parent)), bar(model) {
        Shown()->setTextFormat(Qt::PlainText);
        Shown()->setWordWrap(true);
        Shown()->setProperty("status", true);
    }

private:
    QLabel* Shown() const { return static_cast<QLabel*>(Widget()); }
    void ApplyOwn() override {
        const QString text = board.Text(bar.Text());
        Shown()->setText(text);
        Shown()->setAccessibleName(text.isEmpty() ? QStringLiteral("Status") : text);
    }
    StatusBar& bar;
};

/// A picture that is fetched when it is first seen, as large as its place and its proportions allow.
class PictureLabel : public QLabel {
public:
    PictureLabel(const Image& image, QWidget* parent) : QLabel(parent), image(image) {}
    void LookAnew() {
        if (shown && of == image.Picture()) return;
        shown.reset();
        update();
    }

protected:
    void resizeEvent(QResizeEvent*) override { shown.reset(); }
    void paintEvent(QPaintEvent*) override {
        if (!shown) {
            of = image.Picture();
            shown = Look::Shown(of, Look::DrawingOf(image), size());
        }
        const QSize size = shown->deviceIndependentSize().toSize();
        QPainter(this).drawPixmap(QStyle::alignedRect(layoutDirection(), alignment(), size, rect()), *shown);
    }
    /// In a dialog; the view has its own places.
    QSize sizeHint() const override { return {40, 40}; }

private:
    const Image& image;
    Picture of;
    std::optional<QPixmap> shown;
};

class ImagePainter : public Painter {
public:
    ImagePainter(Board& board, Image& model, QWidget* parent) : Painter(board, model, new PictureLabel(model, parent)) {
        Widget()->setAttribute(Qt::WA_TransparentForMouseEvents);
        Widget()->setAccessibleName(Look::NameOf(model));
    }

private:
    void ApplyOwn() override { static_cast<PictureLabel*>(Widget())->LookAnew(); }
};

/// Clicks on it go on to the window, which takes none.
class FramePainter : public Painter {
public:
    FramePainter(Board& board, Frame& model, QWidget* parent)
        : Painter(board, model, new QGroupBox(parent)), frame(model) {}

private:
    void ApplyOwn() override { static_cast<QGroupBox*>(Widget())->setTitle(board.Text(frame.Caption())); }
    /// Qt's box would keep Enter for a mark that it does not have; the window's default button is meant.
    bool TakesKey(QKeyEvent& event) override {
        event.ignore();
        return true;
    }
    Frame& frame;
};

/// An empty place, which the browser fills when there is something to show.
class BrowserPainter : public Painter {
public:
    BrowserPainter(Board& board, WebBrowser& model, QWidget* parent) : Painter(board, model, new QWidget(parent)) {
        Widget()->setAccessibleName(QStringLiteral("Banner"));
    }

private:
    void ApplyOwn() override {}
};

class SwatchPainter : public Painter {
public:
    SwatchPainter(Board& board, ColourSwatch& model, QWidget* parent)
        : Painter(board, model, new QLabel(parent)), swatch(model) {
        Shown()->setProperty("swatch", true);
        Shown()->setFixedSize(44, 22);
        Shown()->setScaledContents(true);
    }

private:
    QLabel* Shown() const { return static_cast<QLabel*>(Widget()); }
    void ApplyOwn() override {
        const QColor colour = ToColour(swatch.Colour());
        QPixmap fill(1, 1);
        fill.fill(colour);
        Shown()->setPixmap(fill);
        Shown()->setAccessibleName(colour.name());
        Shown()->setToolTip(colour.name());
    }
    ColourSwatch& swatch;
};

/// Without a figure on it: each language writes one in a way of its own, and a screen reader tells the value itself.
class ProgressPainter : public Painter {
public:
    ProgressPainter(Board& board, ProgressBar& model, QWidget* parent)
        : Painter(board, model, new QProgressBar(parent)), bar(model) {
        Shown()->setRange(0, 100);
        Shown()->setTextVisible(false);
    }

private:
    QProgressBar* Shown() const { return static_cast<QProgressBar*>(Widget()); }
    void ApplyOwn() override { Shown()->setValue(bar.Value()); }
    ProgressBar& bar;
};

class ButtonPainter : public Painter {
public:
    ButtonPainter(Board& board, Button& model, QWidget* parent)
        : Painter(board, model, new PictureButton(parent)), button(model) {
        Shown()->setAutoDefault(true); // Enter presses the button that has the focus
        connect(Shown(), &QPushButton::clicked, this,
                [this] { this->board.Input([this](UserInput& input) { return input.Click(button); }); });
    }

private:
    PictureButton* Shown() const { return static_cast<PictureButton*>(Widget()); }
    /// What the button shows depends on its width.
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Resize) board.Dirty(button);
        return Painter::eventFilter(watched, event);
    }
    /// A key that is still held down was meant for what stood here before, perhaps in another window.
    bool TakesKey(QKeyEvent& event) override { return event.isAutoRepeat() && IsEnter(event); }
    static bool IsEnter(const QKeyEvent& event) {
        return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    }
    void ApplyOwn() override {
        Shown()->ensurePolished();
        const QString caption = Look::CaptionOf(button.Name(), board.Text(button.Caption()));
        Shown()->setText(caption);
        Shown()->setAccessibleName(caption);
        const std::string_view prefix = Skins::PrefixOf(button);
        Shown()->SetPictures(button.Pictures(),
                             prefix.empty() ? QString() : QStringLiteral("button-") + QString::fromUtf8(prefix));
        // Where the caption cannot be read, it is told beside.
        Shown()->setToolTip(Shown()->CaptionFits() ? QString() : Board::Tip(caption));
        Shown()->setAccessibleDescription(Shown()->toolTip().isEmpty() ? QString() : caption); // not with its markup
    }
    Button& button;
};

/// The style sheet takes the tick away with the frame.
class TickBox : public QCheckBox {
public:
    using QCheckBox::QCheckBox;

protected:
    void paintEvent(QPaintEvent* event) override {
        QCheckBox::paintEvent(event);
        if (!isChecked()) return;
        QStyleOptionButton option;
        initStyleOption(&option);
        const QRectF box = style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, this);
        const auto at = [&box](double x, double y) {
            return box.topLeft() + QPointF(x * box.width(), y * box.height());
        };
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Look::Colours().Shade("panel"), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(QPolygonF({at(0.24, 0.52), at(0.43, 0.7), at(0.76, 0.3)}));
    }
};

class CheckPainter : public Painter {
public:
    CheckPainter(Board& board, CheckBox& model, QWidget* parent)
        : Painter(board, model, new TickBox(parent)), box(model) {
        connect(Shown(), &QCheckBox::clicked, this, [this](bool on) {
            this->board.Dirty(box); // a refusal takes the tick back
            this->board.Input([this, on](UserInput& input) { return input.Check(box, on); });
        });
    }

private:
    QCheckBox* Shown() const { return static_cast<QCheckBox*>(Widget()); }
    void ApplyOwn() override {
        Shown()->setText(board.Text(box.Caption()));
        Shown()->setChecked(box.On());
    }
    CheckBox& box;
};

class OptionPainter : public Painter {
public:
    OptionPainter(Board& board, OptionButton& model, QWidget* parent)
        : Painter(board, model, new QRadioButton(parent)), option(model) {
        connect(Shown(), &QRadioButton::clicked, this, [this] {
            this->board.Dirty(option); // a refusal takes the mark back
            this->board.Input([this](UserInput& input) { return input.Click(option); });
        });
    }

private:
    QRadioButton* Shown() const { return static_cast<QRadioButton*>(Widget()); }
    void ApplyOwn() override {
        Shown()->setText(board.Text(option.Caption()));
        Shown()->setChecked(option.On());
    }
    OptionButton& option;
};

} // namespace

std::unique_ptr<Painter> MakePainter(Board& board, Control& control, QWidget* parent) {
    switch (control.Kind()) {
    case ControlKind::Label:
        return std::make_unique<LabelPainter>(board, static_cast<Label&>(control), parent);
    case ControlKind::StatusBar:
        return std::make_unique<StatusPainter>(board, static_cast<StatusBar&>(control), parent);
    case ControlKind::Image:
        return std::make_unique<ImagePainter>(board, static_cast<Image&>(control), parent);
    case ControlKind::Frame:
        return std::make_unique<FramePainter>(board, static_cast<Frame&>(control), parent);
    case ControlKind::WebBrowser:
        return std::make_unique<BrowserPainter>(board, static_cast<WebBrowser&>(control), parent);
    case ControlKind::ColourSwatch:
        return std::make_unique<SwatchPainter>(board, static_cast<ColourSwatch&>(control), parent);
    case ControlKind::ProgressBar:
        return std::make_unique<ProgressPainter>(board, static_cast<ProgressBar&>(control), parent);
    case ControlKind::Button:
        return std::make_unique<ButtonPainter>(board, static_cast<Button&>(control), parent);
    case ControlKind::CheckBox:
        return std::make_unique<CheckPainter>(board, static_cast<CheckBox&>(control), parent);
    case ControlKind::OptionButton:
        return std::make_unique<OptionPainter>(board, static_cast<OptionButton&>(control), parent);
    case ControlKind::TextBox:
        return MakeTextPainter(board, static_cast<TextBox&>(control), parent);
    case ControlKind::ComboBox:
        return MakeComboPainter(board, static_cast<ComboBox&>(control), parent);
    case ControlKind::ListBox:
    case ControlKind::ListView:
        return MakeListPainter(board, control, parent);
    case ControlKind::FlexGrid:
        return MakeChatPainter(board, static_cast<FlexGrid&>(control), parent);
    default:
        return nullptr; // timers and menus have no widget of their own
    }
}

} // namespace ombrin::desktop
