// SPDX-License-Identifier: MIT
#include "server/ServerHarness.h"
#include "support/RawServer.h"
#include "support/TestGuard.h"

#include <ClientFramework/FrameworkManagerInterface.h>
#include <ErrorText/ErrorText.h>
#include <Faceplate/GUIMessageTipManager.h>
#include <Ravel/PasswordLineEdit.h>
#include <Vantor/CAccountPasswordWidget>
#include <Vantor/CPasswordFrame>
#include <Vantor/CVerifyCodeWidget>

#include <server/SampleAccounts.h>

#include <QtCore/QProcess>
#include <QtCore/QTranslator>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

#include <cmath>
#include <future>
#include <stdexcept>

using namespace ClientFramework;
using BusinessCommon::CNetCommManager;
using Widget = Vantor::CAccountPasswordWidget;

namespace {

constexpr int kPatient_ms = 60000;
constexpr int kPassed = 9;
constexpr int kNoCodeNext = 502;

class CTexts : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char * /*context*/, const char *key, const char * /*comment*/,
                      int /*count*/) const override
    {
        static const QHash<QByteArray, QString> texts = {
            {"RemainingLEesrBBJA", " (%1 left)"},
            {"Peltra.ee229a03a27748f2bb7b3e2a08484b6a.msg", "%1 s"},
            {"Peltra.41c6a3785fc04331bd942f16e691f805.msg", "%1 min %2 s"},
        };
        return texts.value(key);
    }
};

// Opened once, for all who wait.
class CLatch
{
public:
    void Open() { promise_.set_value(); }
    void Wait() const { future_.wait(); }

private:
    std::promise<void> promise_;
    const std::shared_future<void> future_ = promise_.get_future().share();
};

CheckPwdResultParam Answer(int code, int remaining = -1, int lock_s = 0)
{
    CheckPwdResultParam answer;
    answer.check_result = code == 0 ? kPassed : 0;
    answer.error_code = {8, code, 0};
    answer.remain_count = remaining;
    answer.lock_remain_time = lock_s;
    return answer;
}

// The form, how it is used, and what it told.
class CForm : public Widget
{
public:
    CForm()
    {
        connect(this, &Widget::SignalReturnPressed, this, [this] { Enter(); });
    }

    QLineEdit *User() const { return findChild<QLineEdit *>("ptr_user_name_edit"); }
    QLineEdit *Code() const { return findChild<QLineEdit *>("ptr_verify_edit"); }
    bool AsksForCode() const { return !findChild<Vantor::CVerifyCodeWidget *>()->isHidden(); }

    LoginState Enter(const std::string &plugin = "plugin")
    {
        std::string result;
        state = LoginIn(result, plugin);
        ClientComm::CRapidJsonProto document;
        document.Load(result);
        error = QString::fromStdString(document.GetString("/ErrorInfo", "none"));
        return state;
    }

    // By keys, from the entry of the name on.
    int Type(const char *password, const char *code = nullptr)
    {
        User()->clear();
        GetPasswordEditWidget()->ClearLineEdit();
        QTest::keyClicks(User(), Server::kSampleAccounts[0].name);
        QTest::keyClicks(GetPasswordEditWidget()->GetPasswordLineEdit(), password);
        Code()->clear();
        if (code)
            QTest::keyClicks(Code(), code);
        state = LoginState(-1);
        QTest::keyClick(code ? Code() : User(), Qt::Key_Return);
        QCoreApplication::processEvents(); // what the worker posted
        return state;
    }

    LoginState state = LoginState(-1);
    QString error;
};

} // namespace

class tst_accountpassword : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard_.Begin();
        guard_.AnnounceWarnings("Could not parse stylesheet"); // of the Caps Lock tip
        tips_.clear();
        entered_ = 0;
        ErrorText::SetSource([](const Nim::Base::Error::ErrorCode &code) {
            return QString("error %1").arg(code.error_code);
        });
        Faceplate::CGUIMessageTipManager::SetPresenter(
            [this](QWidget *widget, const QString &text, int kind, int place, int time_s) {
                tips_.append(QString("%1|%2|%3%4|%5")
                                 .arg(widget->objectName(), text)
                                 .arg(kind)
                                 .arg(place)
                                 .arg(time_s));
            });
        // No code can be fetched, unless a test has a server.
        CNetCommManager::SetTransport([](auto &, auto &) { return false; });
    }

    void cleanup()
    {
        CFrameworkManagerInterface::SetBackend(nullptr);
        CNetCommManager::SetTransport(nullptr);
        ErrorText::SetSource(nullptr);
        Faceplate::CGUIMessageTipManager::SetPresenter(nullptr);
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void answersAreTold_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<int>("lock_s");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("asks_for_code");
        QTest::newRow("right") << 0 << 0 << "error 0" << false;
        QTest::newRow("wrong, no code yet") << 40850 << 0 << "error 40850 (3 left)" << false;
        QTest::newRow("wrong, tries unlimited") << 502 << 0 << "error 502" << false;
        for (const int code : {310, 311, 214})
            QTest::addRow("%d", code)
                << code << 0 << QString("error %1 (3 left)").arg(code) << true;
        QTest::newRow("locked, minutes") << 41050 << 75 << "error 41050 1 min 15 s" << true;
        QTest::newRow("locked, a minute") << 41050 << 60 << "error 41050 1 min 0 s" << true;
        QTest::newRow("locked, seconds") << 262 << 59 << "error 262 59 s" << true;
        QTest::newRow("an unknown one") << 77 << 0 << "error 77" << true;
    }

    void answersAreTold()
    {
        QFETCH(const int, code);
        QFETCH(const int, lock_s);
        QFETCH(const QString, text);
        QFETCH(const bool, asks_for_code);
        CTexts texts;
        QCoreApplication::installTranslator(&texts);
        CheckPwdRequestParam asked;
        std::string plugin;
        CFrameworkManagerInterface::SetBackend(
            [&](const std::string &name, const auto &request, CCheckPwdResultParam &result) {
                plugin = name;
                asked = request.Read();
                result = CCheckPwdResultParam(
                    std::make_shared<CheckPwdResultParam>(Answer(code, 3, lock_s)));
            });
        QWidget window;
        window.setObjectName("window");
        CForm form; // never shown, as in a minimised window
        form.SetMainWidget(&window);
        form.User()->setText(QString::fromUtf8("\u00c4nne \"\\"));
        form.GetPasswordEditWidget()->SetPasswordText(QString::fromUtf8("p\u00e4\"\\\u0001</"));

        QCOMPARE(form.Enter("the plugin"), code ? Widget::kLoginFailed : Widget::kLoginSucceeded);
        QVERIFY(!form.AsksForCode());
        QCoreApplication::processEvents();

        QCoreApplication::removeTranslator(&texts);
        QCOMPARE(form.error, text);
        QCOMPARE(form.AsksForCode(), asks_for_code);
        const QStringList tips = {"window||11|15", "window|" + text + "|11|15"};
        QCOMPARE(tips_, code ? tips : QStringList());
        QCOMPARE(plugin, std::string("the plugin"));
        QCOMPARE(asked.str_name, std::string("\u00c4nne \"\\"));
        QCOMPARE(std::string(asked.str_password), std::string("p\u00e4\"\\\u0001</"));
        const QString line =
            QString("3 ClientUserOperate [Vantor::CAccountPasswordWidget::OnUpdataLoginResult]"
                    "OnUpdataLoginResult = [%1] ReturnInfo = [%2][")
                .arg(code ? 0 : kPassed)
                .arg(text);
        QCOMPARE(guard_.LogLines().filter(line).size(), 1);
        QVERIFY(guard_.LogLines().filter(QString::fromUtf8("p\u00e4\"")).isEmpty());

        if (!asks_for_code) // an attempt that is asked for a code does not go without, unseen or
                            // not
            return;
        form.Code()->clear();
        QCOMPARE(form.Enter(), Widget::kInputError);
        QCOMPARE(form.error, QString("TheVerificationCodeCannotBeEmpty"));
        form.Code()->setText("w7");
        form.Enter();
        QCOMPARE(asked.str_verify_code, std::string("w7"));
        form.RestoreUI();
        QVERIFY(!form.AsksForCode() && !form.User()->text().isEmpty());
        QVERIFY(form.GetPasswordEditWidget()->IsPasswordEmpty());
    }

    void anEmptyPasswordIsMarkedAndNotSent()
    {
        SetAnswer(0);
        CForm form;
        QCOMPARE(form.Enter(), Widget::kInputError);

        Vantor::CPasswordFrame *const frame = form.GetPasswordEditWidget();
        const QString marked = "ptr_empty_password_widget_frame";
        auto *const tip = frame->findChild<QLabel *>("ptr_error_tip");
        QCOMPARE(form.error, QString("ThePasswordIsEmptydADZgBNplv"));
        QCOMPARE(tip->text(), form.error);
        QVERIFY(!tip->isHidden());
        QCOMPARE(frame->objectName(), marked);
        QCOMPARE(entered_.load(), 0);
        QCOMPARE(guard_.LogLines()
                     .filter("3 ClientUserOperate [Vantor::CAccountPasswordWidget::LoginIn]"
                             "Input Params Error !!![")
                     .size(),
                 1);
        QTest::keyClick(frame->GetPasswordLineEdit(), Qt::Key_A);
        QVERIFY(frame->objectName() != marked && tip->isHidden());
        QCOMPARE(form.Enter(), Widget::kLoginSucceeded);
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
            CLatch latch;
            std::atomic<bool> is_over{false};
        };
        using Steps = std::array<Step, kAttempts>;
        std::shared_ptr<Steps> steps;
        std::atomic<int> over = 0;
        // Passes the answer of the plug-in's step, which is its number.
        CFrameworkManagerInterface::SetBackend(
            [&](const std::string &plugin, const auto &, CCheckPwdResultParam &result) {
                const std::shared_ptr<Steps> held = steps;
                const size_t index = std::stoul(plugin);
                Step &step = (*held)[index];
                if (step.is_late) {
                    step.latch.Wait();
                } else {
                    for (size_t before = 0; before < index; ++before) {
                        Step &late = (*held)[before];
                        if (!late.is_late || late.is_over.exchange(true))
                            continue;
                        late.latch.Open();
                    }
                }
                ++over;
                result.SetVal_error_code({8, kNoCodeNext, 0});
                result.SetVal_check_result(step.kind == Wrong ? 0 : kPassed);
                if (step.kind == Throws)
                    throw std::runtime_error("no answer");
            });
        CForm form;
        form.GetPasswordEditWidget()->SetPasswordText("password");
        const int orders = int(std::pow(kChoices, kAttempts));
        for (int order = 0; order < orders; ++order) {
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
            for (Step &step : *steps) {
                if (step.is_late && !step.is_over.exchange(true))
                    step.latch.Open();
            }
            while (over < kAttempts)
                std::this_thread::yield();
        }
        QCoreApplication::processEvents();
        QVERIFY(!form.AsksForCode());
    }

    void anAnswerThatIsLateChangesNothing()
    {
        const auto latch = std::make_shared<CLatch>();
        SetAnswer(310, latch);
        QWidget window;
        CForm form;
        form.SetMainWidget(&window);
        form.SetWaitOutTime(1);
        form.GetPasswordEditWidget()->SetPasswordText("password");
        for (int attempt = 0; attempt < 10; ++attempt) {
            QCOMPARE(form.Enter(), Widget::kLoginTimeout);
            QCOMPARE(form.error, QString("RequestTimeOuterror 20"));
        }
        QTRY_COMPARE(entered_.load(), 10); // none waits for the ones before
        QCOMPARE(tips_.mid(18), QStringList({"||11|15", "|RequestTimeOuterror 20|11|15"}));
        QCOMPARE(guard_.LogLines().filter("]LoginIn TimeOut !!![").size(), 10);

        latch->Open();
        QTRY_COMPARE(guard_.LogLines().filter("OnUpdataLoginResult = [0]").size(), 10);

        QVERIFY(!form.AsksForCode());
        QCOMPARE(tips_.size(), 20);
        form.SetWaitOutTime(kPatient_ms);
        QCOMPARE(form.Enter(), Widget::kLoginFailed);
        QTRY_VERIFY(form.AsksForCode());
    }

    void workersOutliveTheForm()
    {
        for (int round = 0; round < 20; ++round) {
            const auto latch = std::make_shared<CLatch>();
            SetAnswer(310, latch);
            auto form = std::make_unique<CForm>();
            form->SetWaitOutTime(0);
            form->GetPasswordEditWidget()->SetPasswordText("password");
            for (int attempt = 0; attempt < 4; ++attempt)
                QCOMPARE(form->Enter(), Widget::kLoginTimeout);
            latch->Open();
            form.reset();
            QTRY_COMPARE(entered_.load(), 4 * (round + 1));
        }
    }

    void serverIsAskedByKeys()
    {
        UseServer();
        CForm form;
        form.show();
        const char *const right = Server::kSampleAccounts[0].password;
        const auto mark = [&form] {
            return form.findChild<Vantor::CVerifyCodeWidget *>()
                ->GetVerifyCode()
                .GetVal_verify_code_mark_();
        };
        QCOMPARE(form.Type(right), int(Widget::kLoginSucceeded));
        QCOMPARE(form.Type("wrong"), int(Widget::kLoginFailed));
        QVERIFY2(form.error.startsWith("error 40850"), qPrintable(form.error));
        QVERIFY(!form.AsksForCode());
        QCOMPARE(form.Type("wrong"), int(Widget::kLoginFailed));
        QVERIFY2(form.error.startsWith("error 310"), qPrintable(form.error));
        QTRY_VERIFY(form.AsksForCode());
        const QString first = mark();
        QVERIFY(!first.isEmpty());
        QVERIFY(!form.findChild<QLabel *>("ptr_vcode_label_")->pixmap(Qt::ReturnByValue).isNull());
        QTest::mouseClick(form.findChild<QLabel *>("ptr_vcode_label_"), Qt::LeftButton);
        QVERIFY(mark() != first && !mark().isEmpty());

        QCOMPARE(form.Type(right, "nope"), int(Widget::kLoginFailed));
        QVERIFY2(form.error.startsWith("error 311"), qPrintable(form.error));
        QCOMPARE(form.Type(right, ""), int(Widget::kInputError));
        QTRY_VERIFY(mark() != first);
        QCOMPARE(form.Type(right, "W7kx"), int(Widget::kLoginSucceeded));

        form.Clear();
        for (int attempt = 0; attempt < 8 && !form.error.startsWith("error 41050"); ++attempt) {
            QCOMPARE(form.Type("wrong", form.AsksForCode() ? "W7kx" : nullptr),
                     int(Widget::kLoginFailed));
            QCoreApplication::processEvents();
        }
        QVERIFY2(form.error.startsWith("error 41050 "), qPrintable(form.error));
        QCOMPARE(form.Type(right, "W7kx"), int(Widget::kLoginFailed)); // while it is locked
        server_->now_s += 24 * 60 * 60;
        QCOMPARE(form.Type(right, "W7kx"), int(Widget::kLoginSucceeded));

        server_->Stop();
        QCOMPARE(form.Type(right, "W7kx"), int(Widget::kLoginFailed));
        QCOMPARE(form.error, QString("error %1").arg(BusinessCommon::kNetConnect));
        QVERIFY(form.AsksForCode()); // of which there is no image
    }

    void repliesThatMakeNoSenseLetNobodyIn_data()
    {
        const std::string passed = R"({"ResponseStatus":{"ErrorModule":%,"ErrorCode":%,)"
                                   R"("Data":{"CheckResult":9}}})";
        const auto with_code = [passed](const char *code) {
            return QString::fromStdString(passed).replace("%", code).toStdString();
        };
        const auto row = [](const char *name, const std::string &bytes, int code) {
            QTest::newRow(name) << QByteArray::fromStdString(bytes) << code;
        };
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("code");
        row("nothing at all", {}, BusinessCommon::kNetTimeout);
        row("no HTTP", std::string(500, '\xfe') + "\r\n\r\n", -1);
        row("no document", CRawServer::ReplyWith("<html"), BusinessCommon::kNetBadReply);
        row("an empty document", CRawServer::ReplyWith("{}"), BusinessCommon::kNetBadReply);
        row("success with an error", CRawServer::ReplyWith(with_code("5")), 5);
        row("success with a status", CRawServer::ReplyWith(with_code("0"), "500 Oh no"), 500);
    }

    void repliesThatMakeNoSenseLetNobodyIn()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const int, code);
        CNetCommManager::SetTransport(nullptr);
        CRawServer server([&bytes](int socket) {
            if (CRawServer::ReadRequest(socket).empty())
                return;
            CRawServer::Send(socket, bytes.toStdString());
            if (bytes.isEmpty())
                CRawServer::ReadRequest(socket); // until the client goes
        });
        CNetCommManager::SetServer("127.0.0.1", server.Port());
        CNetCommManager::SetTimeouts(1000, 300);
        guard_.AnnounceLogLines();
        CForm form;
        form.SetWaitOutTime(kPatient_ms);
        QCOMPARE(form.Type("password"), int(Widget::kLoginFailed));
        if (code >= 0)
            QCOMPARE(form.error, QString("error %1").arg(code));
        if (!bytes.isEmpty())
            return;
        form.SetWaitOutTime(20);
        QCOMPARE(form.Type("password", "code"), int(Widget::kLoginTimeout));
        CNetCommManager::Abort();
    }

    void programEndsWhileChecksRun()
    {
        QProcess program;
        program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        program.start(LOGIN_EXIT_PROGRAM, QStringList());

        // The checks take five minutes.
        QVERIFY2(program.waitForFinished(60000), "it waits for its checks");
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 0);
    }

private:
    // What every check finds, once the latch is open.
    void SetAnswer(int code, const std::shared_ptr<CLatch> &latch = nullptr)
    {
        CFrameworkManagerInterface::SetBackend(
            [this, code, latch](const auto &, const auto &, CCheckPwdResultParam &result) {
                ++entered_;
                if (latch)
                    latch->Wait();
                result = CCheckPwdResultParam(std::make_shared<CheckPwdResultParam>(Answer(code)));
            });
    }

    void UseServer()
    {
        CNetCommManager::SetTransport(nullptr);
        server_ = std::make_unique<CTestServer>();
        const QString error = server_->Start();
        QVERIFY2(error.isEmpty(), qPrintable(error));
    }

    CTestGuard guard_;
    std::unique_ptr<CTestServer> server_;
    QStringList tips_;
    std::atomic<int> entered_{0};
};

QTEST_MAIN(tst_accountpassword)
#include "tst_accountpassword.moc"
