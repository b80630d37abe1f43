// SPDX-License-Identifier: MIT
#include "pages/DevicesPage.h"
#include "pages/PelcoSender.h"
#include "pages/PortForm.h"
#include "pages/PtzView.h"
#include "support/PseudoTerminal.h"
#include "support/Widgets.h"

#include <KeyBoard/PelcoD.h>

#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>
#include <QtWidgets/QListWidget>

using namespace Client;

class tst_client_devices : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override
    {
        page_ = std::make_unique<CDevicesPage>();
        page_->show();
        QVERIFY(QTest::qWaitForWindowExposed(page_.get()));
    }
    void TearDown() override { page_.reset(); }

    QPushButton *Key(int code) const
    {
        return page_->findChild<QPushButton *>(QString("ScreenKey%1").arg(code));
    }

    // Press Connect, or Disconnect, of the form of that name. Returns the text that it then shows.
    QString Connect(const char *form_name, const QString &target = {}) const
    {
        auto *const form = page_->findChild<CPortForm *>(form_name);
        if (!target.isEmpty())
            form->findChild<QComboBox *>()->setEditText(target);
        QTest::mouseClick(form->findChild<QPushButton *>(), Qt::LeftButton);
        return State(form_name);
    }

    QString State(const char *form_name) const
    {
        return page_->findChild<QLabel *>(form_name + QString("State"))->text();
    }

    std::unique_ptr<CDevicesPage> page_;

private Q_SLOTS:
    void aimStaysWhereACameraCanLook()
    {
        const auto moved = [](int operation) { return Moved({}, operation, 63, 10); };
        QVERIFY(moved(103) == (CameraAim{240, 0, 1})); // right, past the whole circle
        QVERIFY(moved(102) == (CameraAim{120, 0, 1}) && moved(109) == (CameraAim{240, -30, 1}));
        QVERIFY(moved(104) == (CameraAim{0, 0, 8}) && moved(105) == (CameraAim{0, 0, 1}));
        QVERIFY(moved(112) == (CameraAim{0, 0, 1}));
    }

    void keysOnTheScreenMoveThePictureUntilTheyAreLetGo()
    {
        auto *const view = page_->findChild<CPtzView *>();
        auto *const commands = page_->findChild<QListWidget *>("DeviceCommands");

        QTest::mousePress(Key(5204), Qt::LeftButton);
        QTRY_VERIFY(view->Aim().pan > 0);
        QTest::mouseRelease(Key(5204), Qt::LeftButton);
        QTRY_COMPARE(commands->count(), 2);
        const CameraAim stopped = view->Aim();
        view->Control(103, false, 63);
        view->Control(124, false, 0); // a selection on the way
        QTRY_VERIFY(view->Aim().pan > stopped.pan + 0.1);
        view->Control(103, true, 0);
        const CameraAim selected = view->Aim();
        QTest::mouseClick(Key(5102), Qt::LeftButton);
        QTest::mouseClick(Key(5210), Qt::LeftButton);
        QTRY_COMPARE(commands->count(), 4);

        QCOMPARE(view->Aim().pan, selected.pan);
        QCOMPARE(commands->item(3)->text(), QString("pan right at speed 24 (103) – camera"));
        QCOMPARE(commands->item(2)->text(), QString("stop: pan right (103) – camera"));
        QCOMPARE(commands->item(1)->text(), QString("zoom in (104) – windows"));
    }

    // A keyboard at one port moves a camera at another.
    void serialKeyboardMovesACameraAtASecondPort()
    {
        CPseudoTerminal keyboard;
        CPseudoTerminal camera;
        Connect("CameraPort", camera.Path());
        QVERIFY(State("CameraPort").contains("9600 baud"));
        Connect("KeyboardPort", keyboard.Path());
        QTRY_VERIFY(State("KeyboardPort").startsWith("Listening"));

        // Camera 7 of the keyboard becomes camera 1, and what the line cannot take is left out.
        keyboard.Write(QByteArray::fromHex("ff070008000918"));
        QByteArray seen;
        QTRY_COMPARE((seen += camera.Read()).toHex(), QByteArray("ff010008000912"));
        for (int speed = 1; speed <= 32; ++speed)
            keyboard.Write(KeyBoard::EncodePelco({7, 0, 0x02, quint8(speed), 0}));
        QTRY_VERIFY((seen += camera.Read()).toHex().endsWith("ff010002200023"));
        QVERIFY(seen.size() < 33 * 7);
        Connect("KeyboardPort");
        QTRY_COMPARE(State("KeyboardPort"), QString());
    }

    // Also when the stop still waits for a slow line.
    void cameraThatIsLetGoStops()
    {
        for (const bool is_stopped : {true, false}) {
            CPseudoTerminal camera;
            CPelcoSender sender;
            sender.Connect(camera.Path(), 2400, 1);
            sender.Send(103, false, 32, 0);
            if (is_stopped)
                sender.Send(103, true, 0, 0);
            sender.Disconnect();
            QByteArray seen;
            QTRY_COMPARE((seen += camera.Read()).toHex(),
                         QByteArray("ff010002200023ff010000000001"));
        }
    }

    void screenKeysMoveACameraAtATcpAddressUntilItIsLost()
    {
        QTcpServer camera;
        QVERIFY(camera.listen(QHostAddress::LocalHost));
        const QString address = QString("127.0.0.1:%1").arg(camera.serverPort());
        Connect("CameraPort", address);
        QTRY_COMPARE(State("CameraPort"), QString("Sending to %1.").arg(address));
        QTRY_VERIFY(camera.hasPendingConnections());
        QTcpSocket *const socket = camera.nextPendingConnection();

        QTest::mousePress(Key(5204), Qt::LeftButton);
        QTRY_COMPARE(socket->bytesAvailable(), 7);
        QTest::mouseRelease(Key(5204), Qt::LeftButton);
        QTRY_COMPARE(socket->bytesAvailable(), 14); // the stop, too
        QTest::mousePress(Key(5204), Qt::LeftButton);
        QTRY_COMPARE(socket->bytesAvailable(), 21);
        page_.reset(); // the page goes while the key is held
        QByteArray seen;
        QTRY_COMPARE((seen += socket->readAll()).toHex().right(14), QByteArray("ff010000000001"));

        SetUp();
        Connect("CameraPort", address);
        QTRY_VERIFY(camera.hasPendingConnections());
        QTRY_VERIFY(State("CameraPort").startsWith("Sending"));
        camera.nextPendingConnection()->abort();
        QTRY_VERIFY(!State("CameraPort").startsWith("Sending"));
        QVERIFY(!State("CameraPort").isEmpty());
        camera.close();
        Connect("CameraPort");
        QTRY_VERIFY(State("CameraPort").contains("refused"));
    }

    void refusedAndLostPortsAreExplained()
    {
        guard_.AnnounceLogLines();
        Connect("KeyboardPort", "/dev/no-such-port");
        QTRY_COMPARE(State("KeyboardPort"), QString("There is no port /dev/no-such-port."));
        QCOMPARE(Connect("CameraPort", "/dev/no-such-port"),
                 QString("There is no port /dev/no-such-port."));
        auto keyboard = std::make_unique<CPseudoTerminal>();
        Connect("KeyboardPort", keyboard->Path());
        QTRY_VERIFY(State("KeyboardPort").startsWith("Listening"));
        keyboard.reset();
        QTRY_VERIFY(State("KeyboardPort").contains("lost"));
    }
};

QTEST_MAIN(tst_client_devices)
#include "tst_client_devices.moc"
