// SPDX-License-Identifier: MIT
#include "support/TestGuard.h"

#include <Nim/Base/OS.h>
#include <Ravel/Frame.h>
#include <Ravel/Label.h>
#include <Ravel/LineEdit.h>
#include <Ravel/PasswordLineEdit.h>
#include <Vantor/CCustomPasswordFrame>
#include <Vantor/CPasswordFrame>
#include <Vantor/CPasswordLineEditNoInputMethod>

#include <QtGui/QClipboard>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolTip>
#include <QtWidgets/QVBoxLayout>

using namespace Vantor;

Q_DECLARE_METATYPE(QKeySequence::StandardKey)

namespace {

// A window with a frame and something else that can have the focus.
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
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window))
            qFatal("no active window");
    }

    Ravel::CPasswordLineEdit &Edit() { return *frame.GetPasswordLineEdit(); }

    Ravel::CLineEdit *Tip() const
    {
        const auto tips = window.template findChildren<Ravel::CLineEdit *>();
        for (Ravel::CLineEdit *const tip : tips) {
            if (tip->windowType() == Qt::ToolTip)
                return tip;
        }
        return nullptr;
    }

    QWidget window;
    Frame frame;
    QLineEdit other;
};

} // namespace

class tst_passwordframe : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard_.Begin();
        // Of the style sheet of the tip, which hosts know as it is.
        guard_.AnnounceWarnings("Could not parse stylesheet of object");
        is_caps_lock_on_ = false;
        Nim::Base::OS::SetCapsLockSource([this] { return is_caps_lock_on_; });
    }

    void cleanup()
    {
        QToolTip::hideText();
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void tipStandsBelowTheFrameWhileCapsLockIsOn()
    {
        Form<CPasswordFrame> form;
        QVERIFY(form.Tip()->isHidden());
        QCOMPARE(form.Tip()->height(), 37);
        is_caps_lock_on_ = true;

        form.frame.SetFocus();
        QTRY_VERIFY(form.Tip()->isVisible());

        QCOMPARE(form.Tip()->size(), QSize(form.Edit().width() + 25, 37));
        const QPoint place(form.frame.width() - form.Edit().width() - 15, form.frame.height() + 3);
        QCOMPARE(form.Tip()->pos(), form.frame.mapToGlobal(place));
        form.window.move(form.window.pos() + QPoint(30, 40));
        form.frame.MoveTipFrame();
        QCOMPARE(form.Tip()->pos(), form.frame.mapToGlobal(place));

        QSignalSpy spy(&form.frame, &CPasswordFrame::SignalFousOut);
        form.other.setFocus();
        QTRY_VERIFY(form.Tip()->isHidden());
        QCOMPARE(spy.count(), 1);
    }

    void tipFollowsTheKeyAndGoesWithTheFrame()
    {
        Form<CCustomPasswordFrame> form;
        form.frame.SetFocus();
        QTRY_VERIFY(form.Edit().hasFocus());
        QVERIFY(form.Tip()->isHidden());

        is_caps_lock_on_ = true;
        QTest::keyPress(&form.Edit(), Qt::Key_CapsLock);
        QVERIFY(form.Tip()->isVisible());
        is_caps_lock_on_ = false;
        QTest::keyRelease(&form.Edit(), Qt::Key_CapsLock);
        QVERIFY(form.Tip()->isHidden());
        is_caps_lock_on_ = true;
        QTest::keyClick(&form.Edit(), Qt::Key_CapsLock);
        QVERIFY(form.Tip()->isVisible());

        form.frame.hide();
        QVERIFY(form.Tip()->isHidden());
    }

    void tipStaysWhenCapsLockWasTurnedOffElsewhere()
    {
        Form<CPasswordFrame> form;
        is_caps_lock_on_ = true;
        form.frame.SetFocus();
        QTRY_VERIFY(form.Tip()->isVisible());
        is_caps_lock_on_ = false;

        form.other.setFocus();
        QTRY_VERIFY(form.other.hasFocus());

        QVERIFY(form.Tip()->isVisible());
        form.frame.HideTipFrame();
        QVERIFY(form.Tip()->isHidden());
    }

    void buttonShowsAndHidesWhatIsTyped()
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
        QVERIFY(!form.Edit().isEnabled());

        form.frame.ClearLineEdit();
        QVERIFY(button->isHidden());
        QVERIFY(!form.Edit().isUndoAvailable());
    }

    void emptyPasswordGetsTheFocusAndTheTip()
    {
        Form<CPasswordFrame> form;
        QString tip = "Type it";
        QVERIFY(!form.frame.PasswordValidCheck(tip));
        QTRY_VERIFY(form.Edit().hasFocus());
        QTRY_COMPARE(QToolTip::text(), QString("Type it"));
        form.frame.SetPasswordText(" ");
        QVERIFY(form.frame.PasswordValidCheck(tip));
    }

    void hiddenPasswordIsNotCopiedOrCut_data()
    {
        QTest::addColumn<QKeySequence::StandardKey>("key");
        QTest::addColumn<QString>("left");
        QTest::newRow("copy") << QKeySequence::Copy << "secret";
        QTest::newRow("cut") << QKeySequence::Cut << "";
    }

    void hiddenPasswordIsNotCopiedOrCut()
    {
        QFETCH(const QKeySequence::StandardKey, key);
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
        QTEST(edit->text(), "left");
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("secret"));
    }

private:
    CTestGuard guard_;
    bool is_caps_lock_on_ = false;
};

QTEST_MAIN(tst_passwordframe)
#include "tst_passwordframe.moc"
