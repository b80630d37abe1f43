// SPDX-License-Identifier: MIT
#include "support/TestGuard.h"

#include <BusinessCommon/NetCommManager.h>
#include <Vantor/CVerifyCodeWidget>
#include <Vantor/CVerifycodeRequestObj>

#include <QtCore/QBuffer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

using namespace Vantor;
using BusinessCommon::CNetCommManager;

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

// A PNG that says to be as large as it likes and holds nothing.
QByteArray Bomb()
{
    QByteArray bytes = Png({1, 1});
    bytes.replace(16, 8, QByteArray::fromHex("0000ea600000ea60")); // 60,000 × 60,000
    return bytes;
}

std::string Reply(const QByteArray &image)
{
    return "{\"ResponseStatus\":{\"ErrorModule\":0,\"ErrorCode\":0,\"Data\":{\"VerificationInfo\":{"
           "\"VerificationMark\":\"mark\",\"VerificationCodeImage\":\""
           + image.toBase64().toStdString() + "\"}}}}";
}

} // namespace

class tst_verifycode : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard_.Begin();
        CNetCommManager::SetTransport(
            [this](ClientComm::CClientRecvInfo &recv, const ClientComm::CClientSendInfo &send) {
                sent_ = send;
                recv.SetVal_Receive_Data(reply_);
                recv.SetVal_Error_code(error_);
                return is_sent_;
            });
        is_sent_ = true;
        error_ = {};
    }

    void cleanup()
    {
        CNetCommManager::SetTransport(nullptr);
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void imagesAreTakenOrRefused_data()
    {
        QTest::addColumn<QByteArray>("image");
        QTest::addColumn<QSize>("size");
        QTest::newRow("the smallest") << Png({1, 1}) << QSize(1, 1);
        QTest::newRow("the largest") << Png({4096, 2}) << QSize(4096, 2);
        QTest::newRow("too wide") << Png({4097, 2}) << QSize();
        QTest::newRow("10,000 pixels high") << Png({1, 10000}) << QSize();
        QTest::newRow("truncated before its size") << Png({30, 10}).left(20) << QSize();
        QTest::newRow("no image") << QByteArray("no image") << QSize();
        QTest::newRow("a decompression bomb") << Bomb() << QSize();
    }

    void imagesAreTakenOrRefused()
    {
        QFETCH(const QByteArray, image);
        QFETCH(const QSize, size);
        reply_ = Reply(image);
        CStruVerifyCode code;
        ErrorText::CErrorCodeEvent error;

        QCOMPARE(CVerifycodeRequestObj().RequestVerifyCode("Ana <&>", code, error), size.isValid());

        QCOMPARE(code.GetVal_pix_code_().size(), size.isValid() ? size : QSize(0, 0));
        QCOMPARE(code.GetVal_verify_code_mark_(), QString("mark"));
        QCOMPARE(error.GetErrorCode(), Nim::Base::Error::ErrorCode());
        QCOMPARE(sent_.GetVal_URL(),
                 std::string("/Quorra/Brisent/Platform/V0/VerificationCodeImage?CT=1"));
        QCOMPARE(sent_.GetVal_Method(), std::string("GET"));
        QCOMPARE(sent_.GetVal_Pattern(), 2);
        QCOMPARE(sent_.GetVal_Request_Data(),
                 std::string("<VerificationCodeImageRequest><UserName>Ana &lt;&amp;&gt;</UserName>"
                             "<Type>0</Type></VerificationCodeImageRequest>"));
    }

    void failuresTellWhy_data()
    {
        QTest::addColumn<bool>("is_sent");
        QTest::addColumn<int>("code");
        QTest::addColumn<QByteArray>("reply");
        QTest::addColumn<QList<int>>("words");
        QTest::addColumn<QString>("line");
        const QList<int> transport = {7, 8, 0}; // never the third word
        QTest::newRow("no exchange") << false << 8 << QByteArray() << transport << "";
        QTest::newRow("refused") << true << 8 << QByteArray("{}") << transport << "";
        QTest::newRow("an empty reply")
            << true << 0 << QByteArray() << QList<int>{0, 20, 2}
            << "5 ClientWarningAndMore "
               "[Vantor::CVerifycodeRequestObj::GetCaptchaImgData]xml Parse fail , recv_data = [";
        QTest::newRow("an error without an image")
            << true << 0 << QByteArray(R"({"ResponseStatus":{"ErrorModule":3,"ErrorCode":404}})")
            << QList<int>{3, 404, 0}
            << "5 ClientWarningAndMore "
               "[Vantor::CVerifycodeRequestObj::GetCaptchaImgData]Base64Decode failure[";
        QTest::newRow("no document")
            << true << 0 << QByteArray("<<") << QList<int>{-1, -1, 0} << "Base64Decode failure[";
    }

    void failuresTellWhy()
    {
        QFETCH(const QByteArray, reply);
        QFETCH(const int, code);
        QFETCH(const QList<int>, words);
        QFETCH(const QString, line);
        is_sent_ = QTest::currentDataTag() != QByteArray("no exchange");
        error_ = {7, code, 9};
        reply_ = reply.toStdString();
        guard_.AnnounceLogLines();
        CStruVerifyCode image;
        ErrorText::CErrorCodeEvent error;

        QVERIFY(!CVerifycodeRequestObj().RequestVerifyCode("Ana", image, error));

        const auto got = error.GetErrorCode();
        QCOMPARE(QList<int>({got.module_code, got.error_code, got.sub_system}), words);
        const QStringList lines = guard_.LogLines();
        QVERIFY2(line.isEmpty() || lines.join('\n').contains(line), qPrintable(lines.join('\n')));
        QVERIFY(lines.constLast().startsWith(
            "3 Clientframework [Vantor::CVerifycodeRequestObj::RequestVerifyCode]"
            "Request verify code Request verify code failed.UserName = Ana["));
    }

    void frameIsMarkedWhileItHasThePointerOrTheKeys()
    {
        CVerifyCodeWidget widget;
        auto *const edit = widget.findChild<QLineEdit *>("ptr_verify_edit");
        QWidget *const frame = edit->parentWidget();
        const auto send = [](QWidget *to, QEvent::Type type) {
            QEvent event(type);
            QApplication::sendEvent(to, &event);
        };
        QCOMPARE(frame->objectName(), QString("ptr_back_frame"));
        send(frame, QEvent::Enter);
        QCOMPARE(frame->objectName(), QString("ptr_back_frame_enter"));
        send(frame, QEvent::Leave);
        QCOMPARE(frame->objectName(), QString("ptr_back_frame"));

        widget.show();
        widget.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&widget));
        widget.SetEditFocus();
        QTRY_COMPARE(frame->objectName(), QString("ptr_back_frame_enter"));
        send(frame, QEvent::Leave);
        QCOMPARE(frame->objectName(), QString("ptr_back_frame_enter"));
        edit->clearFocus();
        QCOMPARE(frame->objectName(), QString("ptr_back_frame"));
    }

    void imageIsStretchedAndAClickAsksForAnother()
    {
        CVerifyCodeWidget widget;
        auto *const label = widget.findChild<QLabel *>("ptr_vcode_label_");
        auto *const edit = widget.findChild<QLineEdit *>("ptr_verify_edit");
        CStruVerifyCode code;
        code.SetVal_verify_code_mark_("mark");
        code.SetVal_pix_code_(QPixmap::fromImage(QImage::fromData(Png({10, 90}))));
        widget.SetVerifyCode(code);
        QCOMPARE(label->pixmap(Qt::ReturnByValue).size(), label->size());
        QSignalSpy spy(&widget, &CVerifyCodeWidget::SignalRefreshVerifyCode);

        QTest::mouseClick(label, Qt::LeftButton);
        QTest::mouseClick(label, Qt::RightButton);
        QTest::keyClick(edit, Qt::Key_F5);
        QTest::keyClicks(edit, "ab1");

        QCOMPARE(spy.count(), 2);
        QVERIFY(!widget.IsCodeTextEmpty());
        QCOMPARE(widget.GetVerifyCode().GetVal_code_text_(), QString("ab1"));
        QCOMPARE(widget.GetVerifyCode().GetVal_verify_code_mark_(), QString("mark"));
        widget.SetVerifyCode(CStruVerifyCode());
        QVERIFY(label->pixmap(Qt::ReturnByValue).isNull());
    }

private:
    CTestGuard guard_;
    ClientComm::CClientSendInfo sent_;
    std::string reply_;
    Nim::Base::Error::ErrorCode error_;
    bool is_sent_ = true;
};

QTEST_MAIN(tst_verifycode)
#include "tst_verifycode.moc"
