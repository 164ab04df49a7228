// The logon dialog's layout: each control is placed from the one before it, around the centre of the view.
#include "session/logon_dialog.h"

#include <cmath>

namespace ombrin {

namespace {

constexpr int kTwips = 15; ///< of one drawn pixel

struct Size {
    int width, height;
};

constexpr Size kPanel{440 * kTwips, 500 * kTwips}, kSplash{400 * kTwips, 84 * kTwips},
    kWelcome{420 * kTwips, 38 * kTwips}, kLabel{110 * kTwips, 26 * kTwips}, kField{185 * kTwips, 26 * kTwips},
    kButton{185 * kTwips, 32 * kTwips};

int Bottom(const Control& control) { return control.Where().top + control.Where().height; }
int RightOf(const Control& control) { return control.Where().left + control.Where().width; }

} // namespace

void UsrNmPwIP::UsrNmPwIP_Form_Resize() {
    const int width = m_iViewWidth, height = m_iViewHeight;
    const auto centred = [width](Control& control, Size size, int top) {
        control.SetPlace({(width - size.width) / 2, top, size.width, size.height});
    };
    const auto beside = [width](Control& label, Control& field, int top) {
        const int left = (width - (kLabel.width + kField.width + 30)) / 2;
        label.SetPlace({left, top, kLabel.width, kLabel.height});
        field.SetPlace({RightOf(label) + 30, top, kField.width, kField.height});
    };
    const auto hung = [width](Control& field, Control& label, int top) {
        const int left = static_cast<int>(std::lround(width * 0.463));
        field.SetPlace({left, top, kField.width, kField.height});
        label.SetPlace({left - kLabel.width - 25, top + 10, kLabel.width, kLabel.height});
    };
    centred(LogonImage, kPanel, (height - kPanel.height) / 2);
    centred(SplashImage, kSplash, LogonImage.Where().top + 200);
    centred(Welcome, kWelcome, Bottom(SplashImage) + 200);
    beside(Label1, LogonName, Bottom(Welcome) + 200);
    beside(Label2, Password, Bottom(LogonName) + 10);
    hung(HostMachine, Label3, Bottom(Password) + 70);
    hung(HTTPPort, Label4, Bottom(HostMachine) + 70);
    centred(Connect, kButton, Bottom(HTTPPort) + 70);
    centred(NewAccount, kButton, Bottom(Connect) + 70);
    centred(CloseButton, kButton, Bottom(NewAccount) + 70);
    BackgroundImage.SetPlace({BackgroundImage.Where().left, 55, width, height});
}

} // namespace ombrin
