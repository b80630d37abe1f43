// SPDX-License-Identifier: MIT
#include "support/Widgets.h"

#include <BusinessCommon/NetCommManager.h>
#include <ClientComm/RapidJsonProto.h>
#include <ClientFramework/FrameworkManagerInterface.h>
#include <ErrorText/ErrorText.h>
#include <Faceplate/GUIMessageTipManager.h>
#include <Ravel/PasswordLineEdit.h>
#include <Vantor/CAccountPasswordWidget>
#include <Vantor/CPasswordFrame>
#include <Vantor/CVerifyCodeWidget>
#include <common/Translate.h>

#include <future>

using namespace ClientFramework;
using BusinessCommon::CNetCommManager;
using Widget = Vantor::CAccountPasswordWidget;

namespace {

constexpr int kPatient_ms = 60000;
constexpr int kPassed = 9;
constexpr int kNoCodeNext = 502;
const QString kPassword = QStringLiteral("\uFEFFp\u00e4\"\\\u0001</"); // with a byte-order mark

const QHash<QByteArray, QString> kTexts = {
    {"RemainingLEesrBBJA", " (%1 left)"},
    {"Peltra.ee229a03a27748f2bb7b3e2a08484b6a.msg", "%1 s"},
    {"Peltra.41c6a3785fc04331bd942f16e691f805.msg", "%1 min %2 s"},
    {"ThePasswordIsEmptydADZgBNplv", "no password"},
};

// The form and what its last attempt returned.
class CForm : public Widget
{
public:
    CForm() { GetPasswordEditWidget()->SetPasswordText(kPassword); }

    QLineEdit *User() const { return findChild<QLineEdit *>("ptr_user_name_edit"); }
    QLineEdit *Code() const { return findChild<QLineEdit *>("ptr_verify_edit"); }
    QLabel *Image() const { return findChild<QLabel *>("ptr_vcode_label_"); }
    bool HasImage() const { return !Image()->pixmap(Qt::ReturnByValue).isNull(); }
    QString Error() const
    {
        return findChild<QLabel *>("ptr_error_tip", Qt::FindDirectChildrenOnly)->text();
    }
    bool AsksForCode() const { return !findChild<Vantor::CVerifyCodeWidget *>()->isHidden(); }

    LoginState Enter(const std::string &plugin = "plugin")
    {
        std::string result;
        const LoginState state = LoginIn(result, plugin);
        ClientComm::CRapidJsonProto document;
        document.Load(result);
        error = QString::fromStdString(document.GetString("/ErrorInfo", "none"));
        return state;
    }

    QString error;
};

// code, lock_s, text, asks_for_code
const Rows<int, int, const char *, bool> kAnswerRows = {
    {"right", 0, 0, "", false},
    {"wrong, no code yet", 40850, 0, "error 40850 (3 left)", false},
    {"wrong, tries unlimited", 502, 0, "error 502", false},
    {"wrong", 310, 0, "error 310 (3 left)", true},
    {"no code", 214, 0, "error 214 (3 left)", true},
    {"locked, minutes", 41050, 75, "error 41050 1 min 15 s", true},
    {"locked, a minute", 41050, 60, "error 41050 1 min 0 s", true},
    {"locked, seconds", 262, 59, "error 262 59 s", true},
    {"an unknown one", 77, 0, "error 77", true},
};

} // namespace

class TestAccountPassword : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override
    {
        Vantor::RemoveTranslations();                          // the keys
        guard_.AnnounceWarnings("Could not parse stylesheet"); // of the Caps Lock tip
        tips_.clear();
        entered_ = 0;
        SetAnswer(310);
        QCoreApplication::installTranslator(&texts_);
        ErrorText::SetSource([](const Nim::Base::Error::ErrorCode &code) {
            return code.error_code ? QString("error %1").arg(code.error_code) : QString();
        });
        Faceplate::CGUIMessageTipManager::SetPresenter(
            [this](QWidget *widget, const QString &text, int kind, int place, int time_s) {
                tips_ << QStringList{widget->objectName(), text, QString::number(kind * 10 + place),
                                     QString::number(time_s)}
                             .join('|');
            });
        // No code can be fetched, unless a test has a server.
        CNetCommManager::SetTransport([](auto &, auto &) { return false; });
        window_ = std::make_unique<QWidget>();
        window_->setObjectName("window");
    }

    void TearDown() override
    {
        QCoreApplication::removeTranslator(&texts_);
        CFrameworkManagerInterface::SetBackend(nullptr);
        CNetCommManager::SetTransport(nullptr);
        ErrorText::SetSource(nullptr);
        Faceplate::CGUIMessageTipManager::SetPresenter(nullptr);
        window_.reset();
    }

    static CCheckPwdResultParam Answer(int code, int lock_s)
    {
        CCheckPwdResultParam answer;
        answer.SetVal_check_result(code == 0 ? kPassed : 0);
        answer.SetVal_error_code({code ? 8 : 0, code, 0});
        answer.SetVal_remain_count(3);
        answer.SetVal_lock_remain_time(lock_s);
        return answer;
    }

    // The answer of every check, once the latch is open.
    void SetAnswer(int code, const std::shared_future<void> &latch = {})
    {
        CFrameworkManagerInterface::SetBackend(
            [this, code, latch](const auto &, const auto &, CCheckPwdResultParam &result) {
                ++entered_;
                if (latch.valid())
                    latch.wait();
                result = Answer(code, 0);
            });
    }

    int CountLines(const QString &end) const
    {
        const QString begin = "3 ClientUserOperate [Vantor::CAccountPasswordWidget::";
        return guard_.LogLines().filter(begin + end).size();
    }

    // Delivers the answer, and the keys that were pressed meanwhile.
    static void Settle()
    {
        for (int round = 0; round < 4; ++round)
            QCoreApplication::processEvents();
    }

    CTestTranslator texts_{[](const char *, const char *key) { return kTexts.value(key); }};
    QStringList tips_;
    std::atomic<int> entered_{0};
    std::unique_ptr<QWidget> window_; // where tips appear

private Q_SLOTS:
    void answersAreTold_data() { AddRows(kAnswerRows); }

    void answersAreTold()
    {
        const auto &[name, code, lock_s, text, asks_for_code] = FetchRow(kAnswerRows);
        const bool is_right = code == 0;
        CheckPwdRequestParam asked;
        CFrameworkManagerInterface::SetBackend(
            [&asked, answer = Answer(code, lock_s)](auto &, auto &request, auto &result) {
                asked = request.Read();
                result = answer;
            });
        CForm form; // never shown, as in a minimised window
        form.SetMainWidget(window_.get());
        form.User()->setText("\u00c4nne \"\\");

        QCOMPARE(form.Enter(), is_right ? Widget::kLoginSucceeded : Widget::kLoginFailed);
        Settle();

        QCOMPARE(form.error, text);
        QCOMPARE(form.AsksForCode(), asks_for_code);
        auto *const edit = form.GetPasswordEditWidget()->GetPasswordLineEdit();
        QCOMPARE(edit->hasSelectedText(), !is_right); // typing replaces it
        const QStringList tips = {"window||11|15", QString("window|%1|11|15").arg(text)};
        QCOMPARE(tips_, is_right ? QStringList() : tips);
        QCOMPARE(asked.str_name, std::string("\u00c4nne \"\\"));
        QCOMPARE(asked.str_password, Nim::Base::SecretText(kPassword.toStdString()));
        const QString line = "OnUpdataLoginResult]OnUpdataLoginResult = [%1] ReturnInfo = [%2][";
        QCOMPARE(CountLines(line.arg(is_right ? kPassed : 0).arg(text)), 1);
        if (!asks_for_code)
            return;
        QCOMPARE(form.Enter(), Widget::kInputError); // hidden or not, it does not go without a code
        QCOMPARE(form.error, QString("TheVerificationCodeCannotBeEmpty"));
        QCOMPARE(form.Error(), form.error);
        form.Code()->setText("w7");
        form.Enter();
        QCOMPARE(asked.str_verify_code, std::string("w7"));
    }

    void anEmptyPasswordIsMarkedAndNotSent()
    {
        CForm form;
        Vantor::CPasswordFrame *const frame = form.GetPasswordEditWidget();
        auto *const tip = frame->findChild<QLabel *>("ptr_error_tip");
        frame->ClearLineEdit();

        QCOMPARE(form.Enter(), Widget::kInputError);

        const QString marked = "ptr_empty_password_widget_frame";
        QCOMPARE(form.error, QString("no password"));
        QCOMPARE(frame->objectName(), marked);
        QCOMPARE(entered_.load(), 0);
        QCOMPARE(CountLines("LoginIn]Input Params Error !!!["), 1);
        QCoreApplication::removeTranslator(&texts_);
        QCoreApplication::processEvents(); // of another language
        QVERIFY(!tip->isHidden() && tip->text() == "ThePasswordIsEmptydADZgBNplv");
        QTest::keyClick(frame->GetPasswordLineEdit(), Qt::Key_A);
        QVERIFY(frame->objectName() != marked && tip->isHidden());
    }

    // Every order of four attempts, and with them of fewer. A late answer comes while the next
    // attempt is on its way.
    void noOrderOfAnswersLetsAWrongPasswordIn()
    {
        enum Kind { Right, Wrong, Throws, KindCount };
        constexpr int kAttempts = 4;
        constexpr int kChoices = 2 * KindCount;
        struct Step
        {
            Kind kind;
            bool is_late;
            std::atomic<bool> may_answer{false};
        };
        using Steps = std::array<Step, kAttempts>;
        std::shared_ptr<Steps> steps;
        std::atomic<int> over = 0;
        // Passes the answer of the plug-in's step, which is its number.
        CFrameworkManagerInterface::SetBackend(
            [&](const std::string &plugin, const auto &, CCheckPwdResultParam &result) {
                const std::shared_ptr<Steps> held = steps;
                const size_t index = std::stoul(plugin);
                const Step &step = (*held)[index];
                for (size_t before = 0; before < index && !step.is_late; ++before)
                    (*held)[before].may_answer = true;
                while (step.is_late && !step.may_answer)
                    std::this_thread::yield();
                ++over;
                result.SetVal_error_code({8, kNoCodeNext, 0});
                result.SetVal_check_result(step.kind == Wrong ? 0 : kPassed);
                if (step.kind == Throws)
                    throw std::runtime_error("no answer");
            });
        CForm form;
        constexpr int kOrders = kChoices * kChoices * kChoices * kChoices;
        for (int order = 0; order < kOrders; ++order) {
            steps = std::make_shared<Steps>();
            over = 0;
            int rest = order;
            for (Step &step : *steps) {
                step.kind = Kind(rest % KindCount);
                step.is_late = rest / KindCount % 2 != 0;
                rest /= kChoices;
            }
            for (size_t index = 0; index < kAttempts; ++index) {
                const Step &step = (*steps)[index];
                form.SetWaitOutTime(step.is_late ? 0 : kPatient_ms);
                const auto state = form.Enter(std::to_string(index));
                const auto meant = step.is_late         ? Widget::kLoginTimeout
                                   : step.kind == Right ? Widget::kLoginSucceeded
                                                        : Widget::kLoginFailed;
                QVERIFY2(state == meant,
                         qPrintable(QString("order %1, attempt %2").arg(order).arg(index)));
            }
            for (Step &step : *steps)
                step.may_answer = true;
            while (over < kAttempts)
                std::this_thread::yield();
        }
        QCoreApplication::processEvents();
        QVERIFY(!form.AsksForCode());
    }

    void anAnswerThatIsLateChangesNothing()
    {
        std::promise<void> latch;
        SetAnswer(310, latch.get_future());
        CForm form;
        form.SetMainWidget(window_.get());
        form.SetWaitOutTime(1);
        for (int attempt = 0; attempt < 3; ++attempt)
            QCOMPARE(form.Enter(), Widget::kLoginTimeout);
        QTRY_COMPARE(entered_.load(), 3); // no attempt waits for the earlier ones
        QCOMPARE(form.error, QString("RequestTimeOuterror 20"));
        QCOMPARE(tips_.mid(4),
                 QStringList({"window||11|15", "window|RequestTimeOuterror 20|11|15"}));
        QCOMPARE(CountLines("LoginIn]LoginIn TimeOut !!!["), 3);

        latch.set_value();
        QTRY_COMPARE(CountLines("OnUpdataLoginResult]OnUpdataLoginResult = [0]"), 3);

        QVERIFY(!form.AsksForCode());
        QCOMPARE(tips_.size(), 6);
        form.SetWaitOutTime(kPatient_ms);
        QCOMPARE(form.Enter(), Widget::kLoginFailed);
        form.RestoreUI(); // the answer is still on its way, and the server insists on a code
        QTRY_VERIFY(form.AsksForCode());
        QCOMPARE(form.Enter(), Widget::kInputError);
        QCOMPARE(tips_.last(), QString("window||11|15")); // the last refusal no longer shows
        form.GetPasswordEditWidget()->SetPasswordText(kPassword);
        delete form.findChild<Vantor::CVerifyCodeWidget *>(); // as hosts may do with any child
        QCOMPARE(form.Enter(), Widget::kLoginFailed);
        delete form.User();
        delete form.GetPasswordEditWidget().data();
        QCOMPARE(form.Enter(), Widget::kInputError);
        form.Clear();
        Settle();
    }

    void workersOutliveTheForm()
    {
        for (int round = 0; round < 20; ++round) {
            std::promise<void> latch;
            SetAnswer(310, latch.get_future());
            auto form = std::make_unique<CForm>();
            form->SetWaitOutTime(0);
            for (int attempt = 0; attempt < 4; ++attempt)
                QCOMPARE(form->Enter(), Widget::kLoginTimeout);
            latch.set_value();
            form.reset();
            QTRY_COMPARE(entered_.load(), 4 * (round + 1));
        }
    }

    void impatienceCostsOneAttempt()
    {
        QDialog dialog; // which clicks its default button when an entry ignores the key
        auto *const button = new QPushButton(&dialog);
        button->setDefault(true);
        auto *const form = new CForm;
        form->setParent(&dialog);
        form->SetLoginButton(button);
        dialog.show();
        CFrameworkManagerInterface::SetBackend([&](auto &, auto &, CCheckPwdResultParam &result) {
            for (int press = 0; press < 4 && entered_ == 0; ++press) {
                for (QObject *const entry : {form->Code(), form->User()})
                    QCoreApplication::postEvent(
                        entry, new QKeyEvent(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier));
                QMetaObject::invokeMethod(button, &QPushButton::click, Qt::QueuedConnection);
            }
            ++entered_;
            result = Answer(kNoCodeNext, 0);
        });
        const auto enter = [form] { form->Enter(); };
        connect(form, &Widget::SignalReturnPressed, form, enter, Qt::QueuedConnection);

        for (int attempt = 1; attempt <= 2; ++attempt) {
            QTest::keyClick(form->User(), attempt == 1 ? Qt::Key_Return : Qt::Key_Enter);
            Settle();
            QCOMPARE(entered_.load(), attempt);
            QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
            QCoreApplication::sendEvent(form->User(), &held);
        }
        button->click();
        Settle();
        QCOMPARE(entered_.load(), 3);
    }

    void anImageBelongsToItsUser()
    {
        QByteArray png;
        QBuffer buffer(&png);
        QImage(1, 1, QImage::Format_RGB32).save(&buffer, "PNG");
        std::string image = png.toBase64().toStdString();
        CNetCommManager::SetTransport([&](auto &recv, auto &) {
            recv.SetVal_Receive_Data(
                "{\"ResponseStatus\":{\"ErrorModule\":0,\"ErrorCode\":0,\"Data\":"
                "{\"VerificationInfo\":{\"VerificationCodeImage\":\""
                + image + "\"}}}}");
            return true;
        });
        guard_.AnnounceLogLines();
        CForm form;
        form.User()->setText("operator");
        form.Enter();
        Settle();
        QVERIFY(form.AsksForCode() && form.HasImage());
        form.Code()->setText("code");

        form.User()->setText("visitor");
        QVERIFY(!form.HasImage());
        QTest::keyClick(form.User(), Qt::Key_Enter); // editing is finished
        QVERIFY(form.HasImage() && form.Code()->text().isEmpty());

        image.clear(); // and no error
        QTest::mouseClick(form.Image(), Qt::LeftButton);
        QCOMPARE(form.Error(), QString("TheImageCannotBeShown"));
    }

    void theFormMayBeDeletedInItsSignals()
    {
        const auto test = [this](auto act) {
            const QPointer<CForm> form = new CForm;
            form->SetMainWidget(window_.get());
            act(form.data(), [form] { delete form.data(); });
            QVERIFY(!form);
            Settle();
        };
        test([](CForm *form, auto end) {
            connect(form, &Widget::SignalReturnPressed, form, end);
            QTest::keyPress(form->User(), Qt::Key_Enter);
        });
        test([](CForm *form, auto end) {
            connect(form->findChild<Vantor::CVerifyCodeWidget *>(),
                    &Vantor::CVerifyCodeWidget::SignalRefreshVerifyCode, form, end);
            QTest::keyPress(form->Code(), Qt::Key_F5);
        });
        test([](CForm *form, auto end) {
            Vantor::CPasswordFrame *const frame = form->GetPasswordEditWidget();
            form->show();
            QApplication::setActiveWindow(form);
            frame->SetFocus();
            connect(frame, &Vantor::CPasswordFrame::SignalFousOut, form, end);
            QApplication::setActiveWindow(nullptr);
        });
        test([](CForm *form, auto end) {
            Faceplate::CGUIMessageTipManager::SetPresenter(
                [end](QWidget *, const QString &, int, int, int) { end(); });
            std::string result;
            form->LoginIn(result, "plugin");
        });
    }

    void programEndsWhileChecksRun()
    {
        QProcess program;
        program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        program.start(LOGIN_EXIT_PROGRAM, QStringList());
        QVERIFY2(program.waitForFinished(60000),
                 "it waits for its checks, which take five minutes");
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 0);
    }
};

QTEST_MAIN(TestAccountPassword)
#include "tst_accountpassword.moc"
