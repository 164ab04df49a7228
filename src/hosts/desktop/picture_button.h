// A button that shows a picture of its state.
#pragma once

#include <QPixmap>
#include <QPushButton>

namespace ombrin::desktop {

/// Without a picture for a state it is a plain button. The caption stays the button's text: for whom it is read aloud,
/// and for its key.
class PictureButton : public QPushButton {
public:
    struct Face {
        QPixmap up, down, disabled;
        bool writesCaption = true; ///< over the picture
    };

    explicit PictureButton(QWidget* parent) : QPushButton(parent) {}
    void SetFace(Face other);
    /// Whether the whole caption can be read, now that the button is as wide as it is.
    bool CaptionFits() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QPixmap& Now() const;
    void Shine(QPainter& painter, QPixmap picture) const;
    bool WritesCaption() const;
    QRect CaptionPlace() const;
    void WriteCaption(QPainter& painter) const;
    bool Fits(const QFont& font, const QRect& place) const;
    QFont FittingFont(const QRect& place) const;

    Face face;
};

} // namespace ombrin::desktop
