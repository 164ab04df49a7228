// What a person does, by the keyboard alone or by the mouse, and sees.
#pragma once

#include "desktop/stage.h"

#include <gtest/gtest.h>

namespace ombrin::test {

enum class Hand { Keyboard, Mouse };

class Evening : public testing::TestWithParam<Hand> {
protected:
    explicit Evening(const std::string& language = "") : stage(language) {}

    Stage stage;
    Dialogs& forms = stage.forms;
    View& view = stage.view;
    UsrNmPwIP& logon = forms.UsrNmPwIP;
    const bool byKeys = GetParam() == Hand::Keyboard;

    void See(std::function<void()> look) { stage.Step(std::move(look)); }

    void Fill(TextBox& box, const QString& text) {
        byKeys ? stage.TabsTo(box) : stage.Clicks(box);
        stage.Presses(Qt::Key_A, Qt::ControlModifier);
        stage.Types(text);
    }
    void Push(Control& button) {
        if (!byKeys) return stage.Clicks(button);
        stage.TabsTo(button);
        stage.Presses(Qt::Key_Space);
    }
    /// What Enter means where the keys go now.
    void Confirm(Button& button) { byKeys ? stage.Presses(Qt::Key_Return) : stage.Clicks(button); }
    void Cancel(Button& button) { byKeys ? stage.Presses(Qt::Key_Escape) : stage.Clicks(button); }
    void AnswerOk() { byKeys ? stage.Presses(Qt::Key_Return) : stage.ClicksText(QStringLiteral("OK")); }
    void Mark(ListBox& list, int row) {
        if (!byKeys) return stage.ClicksRow(list, row);
        stage.TabsTo(list);
        stage.Presses(Qt::Key_Home);
        for (int i = 0; i < row; ++i) stage.Presses(Qt::Key_Down);
        stage.Presses(Qt::Key_Space);
    }

    void Sees(const Form& form) {
        See([this, &form] { EXPECT_EQ(stage.client.Stack().Top(), &form); });
    }
    void SeesBox(const std::string& start) {
        See([this, start] {
            const auto* box = dynamic_cast<MessageBoxForm*>(stage.client.Stack().Top());
            ASSERT_NE(box, nullptr) << start;
            EXPECT_EQ(box->Text().substr(0, start.size()), start);
        });
    }
    void Keys(Control& control) {
        stage.Until([this, &control] { return stage.HasKeys(control); }, "the keys at " + control.Name());
    }
    void Hears(const std::string& message) {
        See([this, message] { EXPECT_EQ(stage.Heard(), message); });
    }
    /// Nothing covers it.
    void IsInFront(Control& control) {
        See([this, &control] {
            QWidget* widget = stage.WidgetOf(control);
            const QWidget* front = stage.window.childAt(widget->geometry().center());
            ASSERT_NE(front, nullptr) << control.Name();
            EXPECT_EQ(front->objectName(), widget->objectName());
        });
    }
};

inline auto BothHands() { return testing::Values(Hand::Keyboard, Hand::Mouse); }
inline std::string NameOf(const testing::TestParamInfo<Hand>& way) {
    return way.param == Hand::Keyboard ? "Keyboard" : "Mouse";
}

} // namespace ombrin::test
