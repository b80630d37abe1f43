// SPDX-License-Identifier: MIT
#include "support/Widgets.h"

#include <BusinessCommon/NetCommManager.h>
#include <Vantor/CVerifyCodeWidget>
#include <Vantor/CVerifycodeRequestObj>

#include <QtCore/QBuffer>

using namespace Vantor;
using BusinessCommon::CNetCommManager;
using Nim::Base::Error::ErrorCode;

namespace {

QByteArray Png(QSize size)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::green);
    image.save(&buffer, "PNG");
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

struct Image
{
    const char *name;
    QByteArray bytes;
    QSize size;
};

struct Failure
{
    const char *name;
    bool is_sent;
    ErrorCode error; // of the exchange
    const char *reply;
    ErrorCode words; // that the caller gets
    const char *line;
};

} // namespace

class TestVerifyCode : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void imagesAreTakenOrRefused_data()
    {
        AddRows<Image>({
            {"the smallest", Png({1, 1}), {1, 1}},
            {"the largest", Png({4096, 2}), {4096, 2}},
            {"too wide", Png({4097, 2}), {0, 0}},
            {"truncated before its size", Png({30, 10}).left(20), {0, 0}},
            {"a decompression bomb", Bomb(), {0, 0}},
        });
    }

    void imagesAreTakenOrRefused()
    {
        const auto &row = FetchRow<Image>();
        ClientComm::CClientSendInfo sent;
        CNetCommManager::SetTransport([&](auto &recv, const auto &send) {
            sent = send;
            recv.SetVal_Receive_Data(kReply + row.bytes.toBase64().toStdString() + "\"}}}}");
            return true;
        });
        CStruVerifyCode code;
        ErrorText::CErrorCodeEvent error;

        QCOMPARE(CVerifycodeRequestObj().RequestVerifyCode("Ana <&>", code, error),
                 !row.size.isEmpty());

        QCOMPARE(code.GetVal_pix_code_().size(), row.size);
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

    void failuresTellWhy_data()
    {
        const char *const empty =
            "5 ClientWarningAndMore [Vantor::CVerifycodeRequestObj::GetCaptchaImgData]"
            "xml Parse fail , recv_data = [";
        const char *const no_image =
            "5 ClientWarningAndMore [Vantor::CVerifycodeRequestObj::GetCaptchaImgData]"
            "Base64Decode failure[";
        const char *const failed = "failed.UserName = Ana[";
        const char *const refused = R"({"ResponseStatus":{"ErrorModule":3,"ErrorCode":404}})";
        AddRows<Failure>({{"no exchange", false, {7, 8, 9}, "", {7, 8, 0}, failed}, // never the 9
                          {"refused", true, {7, 8, 9}, "{}", {7, 8, 0}, failed},
                          {"an empty reply", true, {}, "", {0, 20, 2}, empty},
                          {"an error without an image", true, {}, refused, {3, 404, 0}, no_image},
                          {"no document", true, {}, "<<", {-1, -1, 0}, no_image}});
    }

    void failuresTellWhy()
    {
        const auto &row = FetchRow<Failure>();
        CNetCommManager::SetTransport([&](auto &recv, auto &) {
            recv.SetVal_Receive_Data(row.reply);
            recv.SetVal_Error_code(row.error);
            return row.is_sent;
        });
        guard_.AnnounceLogLines();
        CStruVerifyCode image;
        ErrorText::CErrorCodeEvent error;

        QVERIFY(!CVerifycodeRequestObj().RequestVerifyCode("Ana", image, error));

        QVERIFY(error.GetErrorCode() == row.words);
        QVERIFY(!guard_.LogLines().filter(row.line).isEmpty());
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

protected:
    void TearDown() override { CNetCommManager::SetTransport(nullptr); }
};

QTEST_MAIN(TestVerifyCode)
#include "tst_verifycode.moc"
