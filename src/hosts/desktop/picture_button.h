// A button that shows a picture of its state.
#pragma once

#include "controls/picture.h"

#include <QPixmap>
#include <QPushButton>
#include <array>
#include <optional>

namespace ombrin::desktop {

/// Without a picture for a state it is a plain button. The caption stays the button's text: for whom it is read aloud,
/// and for its key. It is written over a built-in picture, and over a file's where the skin wants that.
class PictureButton : public QPushButton {
public:
    explicit PictureButton(QWidget* parent) : QPushButton(parent) {}

    /// `drawing` begins the names of its built-in pictures; empty where it has none.
    void SetPictures(const ButtonPictures& other, const QString& drawing);
    /// Whether the whole caption can be read, now that the button is as wide as it is.
    bool CaptionFits() const;
    /// In the button; empty where the caption is not written.
    QRect CaptionShownAt() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    enum State { Up, Down, Disabled };

    const Picture& PictureOf(State state) const;
    QString DrawingOf(State state) const;
    bool Has(State state) const { return has[state]; }
    State Now() const;
    const QPixmap& Shown(State state);
    void PaintPlain(QPaintEvent* event);
    void Shine(QPainter& painter, QPixmap picture) const;
    bool WritesCaption() const;
    QRect CaptionPlace() const;
    void WriteCaption(QPainter& painter) const;
    bool Fits(const QFont& font, const QRect& place) const;
    QFont FittingFont(const QRect& place) const;

    ButtonPictures pictures;
    QString drawing;
    std::array<bool, 3> has{};                   ///< a picture that can be shown
    std::array<std::optional<QPixmap>, 3> shown; ///< each as soon as it is painted
};

} // namespace ombrin::desktop
