// What the window looks like where the client leaves it open: the scheme, the fonts, the built-in pictures, the colours
// of who speaks.
#pragma once

#include "controls/simple_models.h"
#include "foundation/settings.h"
#include "hosts/desktop/scheme.h"

#include <QFont>
#include <QIcon>
#include <QPixmap>
#include <QString>

class QApplication;
class QPainter;

namespace ombrin::desktop {

struct Look {
    static constexpr Colour kUsualText = 0x0000FF00; ///< of lists and chats that were given no colour

    /// What a skin asks of the window beside its pictures.
    struct Wishes {
        Scheme scheme;
        bool captions = false; ///< written over the pictures that come from files

        static Wishes Of(Settings& settings);
    };

    /// Style and palette, before the first window.
    static void Install(QApplication& application, const Wishes& wishes);
    /// The style sheet, before the first control.
    static void Dress();
    /// In its six sizes, for which there is time when the window is there.
    static void ShowProgramIcon();
    static const Scheme& Colours();
    static QFont ChatFont();

    static bool CanShow(const Picture& picture, const QString& builtIn);
    /// What is shown of a picture; a null one where there is nothing to show.
    static QPixmap Shown(const Picture& picture, const QString& builtIn, const QSize& size);
    /// The file of a built-in picture of the scheme, by the name of its drawing; a finer one lies beside it.
    static QString FileOf(const QString& drawing);
    /// Ready to be taken at any size.
    static QIcon BuiltIn(const QString& drawing);
    /// The drawing of an image's built-in picture; empty for one that has none.
    static QString DrawingOf(const Image& image);
    /// What that picture is, for who does not see it; empty likewise.
    static QString NameOf(const Image& image);
    /// What a button says: its caption; in the user's language also where the client has none for it, or only its
    /// English one.
    static QString CaptionOf(const std::string& button, const QString& caption);
    /// Whether captions are written over pictures that come from files.
    static bool WritesCaptions();

    /// The same name has the same colour all evening.
    static QColor SenderColour(const QString& name);
    /// As it can be read in lists, chats and entry fields.
    static QColor OnPanel(Colour colour);
    static void PaintBackground(QPainter& painter, const QRect& place);
    static void PaintPanel(QPainter& painter, const QRect& place);
};

} // namespace ombrin::desktop
