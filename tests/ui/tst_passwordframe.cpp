// SPDX-License-Identifier: MIT
#include "support/Widgets.h"

#include <Nim/Base/OS.h>
#include <Ravel/Frame.h>
#include <Ravel/LineEdit.h>
#include <Ravel/PasswordLineEdit.h>
#include <Vantor/CCustomPasswordFrame>
#include <Vantor/CPasswordFrame>
#include <Vantor/CPasswordLineEditNoInputMethod>

#include <QtGui/QClipboard>
#include <QtWidgets/QToolTip>
#include <QtWidgets/QVBoxLayout>

using namespace Vantor;

namespace {

// A window with a frame and another entry, which has the focus.
template <class Frame> struct Form
{
    Form()
    {
        auto *const layout = new QVBoxLayout(&window);
        layout->addWidget(&frame);
        layout->addWidget(&other);
        other.setFocus();
        window.resize(400, 200);
        window.show();
        QApplication::setActiveWindow(&window);
    }

    Ravel::CPasswordLineEdit &Edit() { return *frame.GetPasswordLineEdit(); }

    Ravel::CLineEdit *Tip() const
    {
        const auto tips = window.template findChildren<Ravel::CLineEdit *>();
        return *std::find_if(tips.begin(), tips.end(),
                             [](auto *tip) { return tip->windowType() == Qt::ToolTip; });
    }

    QPoint TipPlace()
    {
        return frame.mapToGlobal({frame.width() - Edit().width() - 15, frame.height() + 3});
    }

    QWidget window;
    Frame frame;
    QLineEdit other;
};

} // namespace

class TestPasswordFrame : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void theTipIsBelowTheFrameWhileCapsLockIsOn()
    {
        Form<CPasswordFrame> form;
        QCOMPARE(form.Tip()->height(), 37);
        is_caps_lock_on_ = true;

        form.frame.SetFocus();

        QVERIFY(form.Tip()->isVisible());
        QVERIFY(form.frame.GetBaseFrame()->property("hasFocus").toBool());
        QCOMPARE(form.Tip()->size(), QSize(form.Edit().width() + 25, 37));
        QCOMPARE(form.Tip()->pos(), form.TipPlace());
        form.window.move(form.window.pos() + QPoint(30, 40));
        QCOMPARE(form.Tip()->pos(), form.TipPlace());
        form.window.resize(700, 300);
        QCoreApplication::processEvents();
        QCOMPARE(form.Tip()->pos(), form.TipPlace());
        form.window.layout()->removeWidget(&form.other); // something above or below goes
        QTRY_COMPARE(form.Tip()->pos(), form.TipPlace());

        QSignalSpy spy(&form.frame, &CPasswordFrame::SignalFousOut);
        form.other.setFocus();
        QVERIFY(form.Tip()->isHidden());
        QCOMPARE(spy.count(), 1);
    }

    void theTipFollowsTheKeyAndIsHiddenWithTheFrame()
    {
        Form<CCustomPasswordFrame> form;
        form.frame.SetFocus();
        for (const bool is_on : {true, false, true}) {
            is_caps_lock_on_ = is_on;
            QTest::keyClick(&form.Edit(), Qt::Key_CapsLock);
            QCOMPARE(form.Tip()->isVisible(), is_on);
        }
        is_caps_lock_on_ = false; // by another program: the tip stays, hosts know it so
        form.other.setFocus();
        QVERIFY(form.Tip()->isVisible());
        form.frame.hide();
        QVERIFY(form.Tip()->isHidden());
    }

    void theButtonShowsAndHidesThePassword()
    {
        Form<CPasswordFrame> form;
        QPushButton *const button = form.frame.GetSwitchPassBtn();
        QCOMPARE(button->objectName(), QString("ptr_show_passWord"));
        QVERIFY(button->isHidden());
        QSignalSpy spy(&form.frame, &CPasswordFrame::SignalLienEditTextChanged);
        QTest::keyClicks(&form.Edit(), "secret");
        QCOMPARE(spy.count(), 6);
        QVERIFY(!button->isHidden());

        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(form.Edit().echoMode(), QLineEdit::Normal);
        QCOMPARE(button->objectName(), QString("password_visible"));
        QVERIFY(form.Edit().inputMethodHints() & Qt::ImhSensitiveData);
        form.frame.SetEnabled(false);
        QCOMPARE(form.Edit().echoMode(), QLineEdit::Password);
        QCOMPARE(button->objectName(), QString("password_unvisible"));

        form.frame.ClearLineEdit();
        QVERIFY(button->isHidden() && !form.Edit().isUndoAvailable());
        form.frame.SetEnabled(true);
        QString tip = "Type it";
        QVERIFY(!form.frame.PasswordValidCheck(tip));
        QVERIFY(form.Edit().hasFocus());
        QTRY_COMPARE(QToolTip::text(), tip);
        QToolTip::hideText();
        form.frame.SetPasswordText(" ");
        QVERIFY(form.frame.PasswordValidCheck(tip));
    }

    void aHiddenPasswordIsNeitherCopiedNorCut()
    {
        for (const auto key : {QKeySequence::Copy, QKeySequence::Cut}) {
            Form<CCustomPasswordFrame> form;
            CPasswordLineEditNoInputMethod *const edit = form.frame.GetPassWordLineEdit();
            edit->setText("secret");
            edit->selectAll();
            QGuiApplication::clipboard()->setText("before");

            QTest::keySequence(edit, QKeySequence(key));
            QCOMPARE(edit->text(), QString("secret"));
            QCOMPARE(QGuiApplication::clipboard()->text(), QString("before"));

            form.frame.OnSwitchPassWordShow();
            QTest::keySequence(edit, QKeySequence(key));
            QCOMPARE(edit->text().isEmpty(), key == QKeySequence::Cut);
            QCOMPARE(QGuiApplication::clipboard()->text(), QString("secret"));
        }
    }

protected:
    void SetUp() override
    {
        guard_.AnnounceWarnings("Could not parse stylesheet"); // of the Caps Lock tip
        is_caps_lock_on_ = false;
        Nim::Base::OS::SetCapsLockSource([this] { return is_caps_lock_on_; });
    }

private:
    bool is_caps_lock_on_ = false;
};

QTEST_MAIN(TestPasswordFrame)
#include "tst_passwordframe.moc"
