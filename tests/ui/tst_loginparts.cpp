// SPDX-License-Identifier: MIT
// What the login is made of: password entry, verification code, settings of the server.
#include "support/Widgets.h"

#include <BusinessCommon/NetCommManager.h>
#include <Nim/Base/OS.h>
#include <Ravel/Frame.h>
#include <Ravel/LineEdit.h>
#include <Ravel/PasswordLineEdit.h>
#include <Vantor/CCustomPasswordFrame>
#include <Vantor/CPasswordFrame>
#include <Vantor/CPasswordLineEditNoInputMethod>
#include <Vantor/CVerifyCodeWidget>
#include <Vantor/CVerifycodeRequestObj>
#include <common/LoginRecords.h>
#include <ui/SecondAuthentication/LoginSetting.h>

using namespace Vantor;
using BusinessCommon::CNetCommManager;
using Nim::Base::Error::ErrorCode;
using namespace NimClientFrameWork;

namespace {

QByteArray Png(QSize size)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImage(size, QImage::Format_Mono).save(&buffer, "PNG");
    return bytes;
}

// A PNG that claims a size of 60,000 × 60,000 pixels and holds nothing.
QByteArray Bomb()
{
    return Png({1, 1}).replace(16, 8, QByteArray::fromHex("0000ea600000ea60"));
}

const std::string kReply =
    "{\"ResponseStatus\":{\"ErrorModule\":0,\"ErrorCode\":0,\"Data\":{\"VerificationInfo\":"
    "{\"VerificationMark\":\"mark\",\"VerificationCodeImage\":\"";

// The eleven numbers in the order of the records.
QString Text(const CLoginSettingStruct &setting)
{
    const LoginSettingStruct &all = setting.Read();
    const IPLockStruct &ip = all.stru_ip_lock.Read();
    const PasswordStrengthStruct &strength = all.stru_pwd_strength.Read();
    const PasswordExpirtyStruct &expiry = all.stru_pwd_expirty.Read();
    const ClientLockStruct &client = all.stru_client_lock.Read();
    return QString::asprintf("%d %d %d %d %d %d %d %d %d %d %d", int(ip.enum_enable),
                             ip.failed_count, ip.duration_time, int(strength.enum_enable),
                             int(strength.enum_password_strength), int(expiry.enum_enable),
                             int(expiry.enum_config), expiry.days, int(client.enum_enable),
                             int(client.enum_lock_config), client.duration_time);
}

const char *const kDefaults = "0 5 10 0 0 0 0 0 0 0 10";

// bytes, size
const Rows<QByteArray, QSize> kImageRows = {
    {"the smallest", Png({1, 1}), {1, 1}},
    {"the largest", Png({4096, 2}), {4096, 2}},
    {"too wide", Png({4097, 2}), {0, 0}},
    {"truncated before its size", Png({30, 10}).left(20), {0, 0}},
    {"a decompression bomb", Bomb(), {0, 0}},
    {"a GIF on a large screen",
     QByteArray::fromBase64("R0lGODdhWzEsMTEsMSxbAAAAAAAAAAALiQAAAAAAAAAPcguJ"),
     {0, 0}},
    {"a large PNG in a small icon",
     QByteArray::fromHex("0000010001001010000001002000ffff000016000000") + Png({5000, 2}),
     {0, 0}},
};

// setting, numbers
const Rows<const char *, const char *> kReplyRows = {
    {"all numbers",
     R"({"IPLock":{"Duration":1,"Enable":2,"FailCount":3},"PasswordStrength":)"
     R"({"Enable":4,"Strength":5},"PasswordExpiry":{"Enable":6,"Config":7,)"
     R"("Day":8},"ClientLock":{"Enable":9,"Config":10,"Duration":11}})",
     "2 3 1 4 5 6 7 8 9 10 11"},
    {"missing ones: -1", R"({"IPLock":{"Duration":1,"Enable":1}})",
     "1 -1 1 -1 -1 -1 -1 -1 -1 -1 -1"},
    {"no members", "{}", kDefaults},
    {"not JSON", "{", kDefaults},
};

constexpr char kEmpty[] =
    "5 ClientWarningAndMore [Vantor::CVerifycodeRequestObj::GetCaptchaImgData]"
    "xml Parse fail , recv_data = [";
constexpr char kNoImage[] =
    "5 ClientWarningAndMore [Vantor::CVerifycodeRequestObj::GetCaptchaImgData]"
    "Base64Decode failure[";
constexpr char kFailed[] = "failed.UserName = Ana[";
constexpr char kRefused[] = R"({"ResponseStatus":{"ErrorModule":3,"ErrorCode":404}})";

// is_sent, error of the exchange, reply, words that the caller gets, line
const Rows<bool, ErrorCode, const char *, ErrorCode, const char *> kFailureRows = {
    {"no exchange", false, {7, 8, 9}, "", {7, 8, 0}, kFailed}, // never the 9
    {"refused", true, {7, 8, 9}, "{}", {7, 8, 0}, kFailed},
    {"an empty reply", true, {}, "", {0, 20, 2}, kEmpty},
    {"an error without an image", true, {}, kRefused, {3, 404, 0}, kNoImage},
    {"no document", true, {}, "<<", {-1, -1, 0}, kNoImage},
};

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

class TestLoginParts : public CGuardedTest
{
    Q_OBJECT

    void TearDown() override { CNetCommManager::SetTransport(nullptr); }

    void SetUp() override
    {
        guard_.AnnounceWarnings("Could not parse stylesheet"); // of the Caps Lock tip
        is_caps_lock_on_ = false;
        Nim::Base::OS::SetCapsLockSource([this] { return is_caps_lock_on_; });
    }

    bool is_caps_lock_on_ = false;

private Q_SLOTS:
    void imagesAreTakenOrRefused_data() { AddRows(kImageRows); }

    void imagesAreTakenOrRefused()
    {
        const auto &[name, bytes, size] = FetchRow(kImageRows);
        const std::string reply = kReply + bytes.toBase64().toStdString() + "\"}}}}";
        ClientComm::CClientSendInfo sent;
        CNetCommManager::SetTransport([&sent, reply](auto &recv, const auto &send) {
            sent = send;
            recv.SetVal_Receive_Data(reply);
            return true;
        });
        CStruVerifyCode code;
        ErrorText::CErrorCodeEvent error;

        QCOMPARE(CVerifycodeRequestObj().RequestVerifyCode("Ana <&>", code, error),
                 !size.isEmpty());

        QCOMPARE(code.GetVal_pix_code_().size(), size);
        QCOMPARE(code.GetVal_verify_code_mark_(), QString("mark"));
        QCOMPARE(error.GetErrorCode(), ErrorCode());
        QCOMPARE(sent.GetVal_URL(),
                 std::string("/Quorra/Brisent/Platform/V0/VerificationCodeImage?CT=1"));
        QCOMPARE(sent.GetVal_Method(), std::string("GET"));
        QCOMPARE(sent.GetVal_Pattern(), 2);
        QCOMPARE(sent.GetVal_Request_Data(),
                 std::string("<VerificationCodeImageRequest><UserName>Ana &lt;&amp;&gt;</UserName>"
                             "<Type>0</Type></VerificationCodeImageRequest>"));
    }

    void failuresTellWhy_data() { AddRows(kFailureRows); }

    void failuresTellWhy()
    {
        const auto &[name, is_sent, error_of_exchange, reply, words, line] = FetchRow(kFailureRows);
        ClientComm::CClientRecvInfo received;
        received.SetVal_Receive_Data(reply);
        received.SetVal_Error_code(error_of_exchange);
        CNetCommManager::SetTransport([&received, result = is_sent](auto &recv, auto &) {
            recv = received;
            return result;
        });
        guard_.AnnounceLogLines();
        CStruVerifyCode image;
        ErrorText::CErrorCodeEvent error;

        QVERIFY(!CVerifycodeRequestObj().RequestVerifyCode("Ana", image, error));

        QVERIFY(error.GetErrorCode() == words && !guard_.LogLines().filter(line).isEmpty());
        QVERIFY(guard_.LogLines().constLast().startsWith(
            "3 Clientframework [Vantor::CVerifycodeRequestObj::RequestVerifyCode]"
            "Request verify code Request verify code failed.UserName = Ana["));
    }

    void theFrameIsMarkedWhileItHasThePointerOrTheFocus()
    {
        CVerifyCodeWidget widget;
        auto *const edit = widget.findChild<QLineEdit *>("ptr_verify_edit");
        QWidget *const frame = edit->parentWidget();
        widget.show();
        QApplication::setActiveWindow(&widget);
        edit->clearFocus();
        const auto mark_after = [frame](QEvent::Type type) {
            QEvent event(type);
            QApplication::sendEvent(frame, &event);
            return frame->objectName();
        };
        QCOMPARE(mark_after(QEvent::Enter), QString("ptr_back_frame_enter"));
        QCOMPARE(mark_after(QEvent::Leave), QString("ptr_back_frame"));
        widget.SetEditFocus();
        QCOMPARE(mark_after(QEvent::Leave), QString("ptr_back_frame_enter"));
        edit->clearFocus();
        QCOMPARE(frame->objectName(), QString("ptr_back_frame"));
    }

    void aClickAndF5AskForAnotherImage()
    {
        CVerifyCodeWidget widget;
        auto *const label = widget.findChild<QLabel *>("ptr_vcode_label_");
        auto *const edit = widget.findChild<QLineEdit *>("ptr_verify_edit");
        CStruVerifyCode code;
        code.SetVal_verify_code_mark_("mark");
        code.SetVal_pix_code_(QPixmap(10, 90));
        widget.SetVerifyCode(code);
        QCOMPARE(label->pixmap(Qt::ReturnByValue).size(), label->size()); // stretched
        QSignalSpy spy(&widget, &CVerifyCodeWidget::SignalRefreshVerifyCode);

        QTest::mouseClick(label, Qt::LeftButton);
        QTest::mouseClick(label, Qt::RightButton);
        QTest::keyClick(edit, Qt::Key_F5);
        QTest::keyClicks(edit, "ab1");

        QCOMPARE(spy.count(), 2);
        QCOMPARE(widget.GetVerifyCode().GetVal_code_text_(), QString("ab1"));
        QCOMPARE(widget.GetVerifyCode().GetVal_verify_code_mark_(), QString("mark"));
    }

    void settingsAreRead_data() { AddRows(kReplyRows); }

    void settingsAreRead()
    {
        const auto &row = FetchRow(kReplyRows);
        std::string url;
        CNetCommManager::SetTransport([&](auto &recv, const auto &send) {
            url = send.GetVal_URL();
            recv.SetVal_Receive_Data(std::string(R"({"ResponseStatus":{"Data":{"SecuritySetting":)")
                                     + std::get<1>(row) + "}}}");
            return true;
        });
        CDaxPwdResponse response;
        CLoginSettingStruct setting;

        QVERIFY(Vantor::RequestLoginSetting(response, setting));

        QCOMPARE(Text(setting), QString(std::get<2>(row)));
        QCOMPARE(url, std::string("/Quorra/Brisent/Platform/V0/Permission/SecuritySetting"));
    }

    void failuresFillTheError()
    {
        for (const bool is_sent : {false, true}) {
            CNetCommManager::SetTransport([&](auto &recv, auto &) {
                recv.SetVal_Error_code({7, 8, 9});
                return is_sent;
            });
            CDaxPwdResponse response;
            CLoginSettingStruct setting;

            QVERIFY(!Vantor::RequestLoginSetting(response, setting));

            // A refusal of the server fills the first two words only, and 1 is the default.
            QVERIFY(response.GetVal_stru_error_info() == ErrorCode({7, 8, is_sent ? 1 : 9}));
            QCOMPARE(Text(setting), QString(kDefaults));
        }
        QCOMPARE(CDaxCaptchaInfo().GetVal_client_type(), kClientCaptcha); // others: 1
        QCOMPARE(CLoginResult().GetVal_remain_count(), 0);                // others: 5
    }

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
        QVERIFY(!form.frame.PasswordValidCheck(tip) && form.Edit().hasFocus());
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
};

QTEST_MAIN(TestLoginParts)
#include "tst_loginparts.moc"
