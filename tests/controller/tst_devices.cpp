// SPDX-License-Identifier: MIT
#include "support/PseudoTerminal.h"
#include "support/TestGuard.h"

#include <Faceplate/NewInfoDlg.h>
#include <KeyBoard/KeyBoard.h>
#include <Vantor/CJoystickKeyboardControlManager>
#include <Vantor/CJoystickKeyboardEvent>
#include <Vantor/CUSBJoystickControlManager>
#include <Vantor/CUpdateEvent>
#include <Vantor/CZellSerialKeyboardControlManager>
#include <Vantor/CZellUSBKeyboardControlManager>

#include <SDL.h>

#include <QtCore/QCoreApplication>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <algorithm>
#include <atomic>
#include <thread>

using namespace Vantor;
using Operation = KeyboradData::KeyOperation::Type;
using Com = ResourceManager::SystemConfig::COMJoystick;

namespace {

constexpr quint32 kSerial = 1000;
constexpr quint32 kJoystick = 1002;
constexpr quint32 kKeyboard = 1003;

// A device library that is as good as its orders.
class CTestDriver : public KeyBoardDriver
{
public:
    bool Init(KeyBoardCallBack callback, void *user_data) override
    {
        calls << "init";
        callback_ = callback;
        user_data_ = user_data;
        return starts;
    }

    void Uninit() override
    {
        is_firing_ = false;
        if (thread_.joinable())
            thread_.join();
        calls << "uninit";
    }

    bool OpenSerialKeyBoard(quint32 id, const KeyBoardSerialParam &param) override
    {
        calls << QString("open %1 %2 %3 %4 %5 %6 %7")
                     .arg(id)
                     .arg(param.port_name)
                     .arg(param.baud_rate)
                     .arg(param.data_bits)
                     .arg(param.stop_bits)
                     .arg(param.parity)
                     .arg(param.flow_control);
        return opens;
    }

    bool CloseSerialKeyBoard(quint32 id) override
    {
        calls << QString("close %1").arg(id);
        return true;
    }

    void Send(quint32 type, quint32 first, quint32 second = 0, quint32 third = 0)
    {
        callback_(type, first, second, third, "text", nullptr, user_data_);
    }

    // As a device thread does, until Uninit().
    void Fire()
    {
        is_firing_ = true;
        thread_ = std::thread([this] {
            while (is_firing_)
                Send(kJoystick, 1305, 3);
        });
    }

    QStringList calls;
    bool starts = true;
    bool opens = true;

private:
    KeyBoardCallBack callback_ = nullptr;
    void *user_data_ = nullptr;
    std::atomic<bool> is_firing_{false};
    std::thread thread_;
};

CJoystickKeyboardControlManager *Coordinator()
{
    return CJoystickKeyboardControlManager::Instance();
}

// Buttons and keys stand for 500 and their number, but for those that a test wants special.
int special_key = -1;
Operation special_operation = Operation(0);

template <class KeyType> Operation Translated(KeyType key)
{
    return key == special_key ? special_operation : Operation(500 + int(key));
}

struct Step
{
    quint32 type;
    quint32 first;
    quint32 second = 0;
    quint32 third = 0;
};

using Steps = QVector<Step>;

// One emitted command: "operation stop speed index window-control".
QString Line(const QList<QVariant> &arguments)
{
    return QString("%1 %2 %3 %4 %5%6")
        .arg(arguments.at(0).value<Operation>())
        .arg(arguments.at(1).toInt())
        .arg(arguments.at(2).toInt())
        .arg(arguments.at(3).toInt())
        .arg(arguments.at(4).toInt())
        .arg(arguments.at(5).toBool() ? " from PC" : "");
}

} // namespace

Q_DECLARE_METATYPE(Step)
Q_DECLARE_METATYPE(Steps)

class tst_devices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard_.Begin();
        driver_ = std::make_unique<CTestDriver>();
        KeyBoard_SetDriver(driver_.get());
        tips_.clear();
        Faceplate::CNewInfoDlg::SetPresenter([this](const Faceplate::CStruInfoTipsData &data) {
            tips_ << QString("%1 %2").arg(data.text).arg(data.information_type);
        });
        CJoystickKeyboardControlManager::CreateInstance();
        special_key = -1;
    }

    void cleanup()
    {
        CJoystickKeyboardControlManager::DeleteInstance();
        KeyBoard_SetDriver(nullptr);
        Faceplate::CNewInfoDlg::SetPresenter(nullptr);
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void everyCodeIsTranslated_data();
    void everyCodeIsTranslated();
    void sequencesDropRepeatsAsEachDeviceDoes_data();
    void sequencesDropRepeatsAsEachDeviceDoes();
    void stopsAreAlwaysSentWhenTheHostWantsThat_data();
    void stopsAreAlwaysSentWhenTheHostWantsThat();
    void devicesThatComeAndGoAreTold();
    void slotSeesTheStateBefore();
    void logSpeaksForTheDevice();
    void portsOpenOnceEach();
    void libraryThatDoesNotStartIsNotTriedAgain();
    void keyboardsAreIgnoredUntilTheLibraryRuns();
    void otherEventsOfTheSameTypeAreLeftAlone();
    void deletingWhileTheDeviceFiresIsClean();
    void realDevicesReachTheSignals();

private:
    bool Start(Com com = Com(1))
    {
        return Coordinator()->InitKeyBoard(
            com, &Translated<KeyboradData::USBKeyboardOperation::KeyType>,
            &Translated<KeyboradData::JoystickOperation::KeyType>, nullptr);
    }

    QStringList Run(const Steps &steps)
    {
        QSignalSpy spy(Coordinator(),
                       &CJoystickKeyboardControlManager::SignalJoystickKeyboardControl);
        for (const Step &step : steps) {
            driver_->Send(step.type, step.first, step.second, step.third);
            QCoreApplication::sendPostedEvents();
        }
        QStringList lines;
        for (const QList<QVariant> &arguments : qAsConst(spy))
            lines << Line(arguments);
        return lines;
    }

    CTestGuard guard_;
    std::unique_ptr<CTestDriver> driver_;
    QStringList tips_;
};

void tst_devices::everyCodeIsTranslated_data()
{
    QTest::addColumn<Step>("step");
    QTest::addColumn<QString>("expected");
    const auto add = [](quint32 type, quint32 first, const char *expected, quint32 third = 0,
                        quint32 second = 5) {
        QTest::addRow("%u %u, %u, %u", type, first, second, third)
            << Step{type, first, second, third} << QString(expected);
    };
    add(kSerial, 2001, "124 0 0 5 0");
    add(kSerial, 2001, "124 0 0 4 0", 0, 1); // 1 counts as 4, an index too
    add(kSerial, 2002, "125 0 0 5 0");
    const QPair<quint32, const char *> plain[] = {
        {3002, "116 0 0 0 0"},
        {3003, "117 0 0 0 0"},
        {3011, "104 0 0 0 0"},
        {3012, "105 0 0 0 0"},
        {3013, "112 0 0 0 0"},
        {3014, "113 0 0 0 0"},
        {3015, "114 0 0 0 0"},
        {3016, "115 0 0 0 0"},
        {3021, "100 0 5 0 0"},
        {3022, "101 0 5 0 0"},
        {3023, "102 0 5 0 0"},
        {3024, "103 0 5 0 0"},
        {3025, "100 0 5 0 0"},
        {3026, "101 0 5 0 0"},
        {3027, "102 0 5 0 0"},
        {3028, "103 0 5 0 0"},
        {3029, "118 0 0 0 0"},
        {3060, "118 0 0 0 0"},
        {3030, ""},
        {3050, "200 0 0 5 0"},
        {3052, ""},
        {3053, ""},
        {5201, ""},
    };
    for (const auto &[code, expected] : plain)
        add(kSerial, code, expected);
    add(kSerial, 3025, "100 0 4 0 0", 0, 1);
    add(kSerial, 3025, "100 0 -1 0 0", 0, 0xFFFFFFFF);

    add(kKeyboard, 5101, "124 0 0 5 1");
    add(kKeyboard, 5101, "125 0 0 5 1", 2);
    const QPair<quint32, const char *> keyboard[] = {
        {5102, "510 0 0 0 1"},
        {5103, "511 0 0 0 1"},
        {5104, "512 0 0 0 1"},
        {5105, "513 0 0 0 1"},
        {5106, "514 0 0 0 1"},
        {5201, "100 0 5 0 1"},
        {5202, "101 0 5 0 1"},
        {5203, "102 0 5 0 1"},
        {5204, "103 0 5 0 1"},
        {5205, "109 0 5 0 1"},
        {5206, "106 0 5 0 1"},
        {5207, "108 0 5 0 1"},
        {5208, "107 0 5 0 1"},
        {5209, ""},
        {5210, "104 0 0 0 1"},
        {5211, "105 0 0 0 1"},
        {5212, ""},
    };
    for (const auto &[code, expected] : keyboard)
        add(kKeyboard, code, expected);
    add(kKeyboard, 5102, "510 0 0 0 1", 0, 1);
    for (const quint32 code : {5104U, 5105U, 5106U})
        add(kKeyboard, code, qPrintable(QString("%1 1 0 0 1").arg(code - 4592)), 0, 1);

    const QPair<quint32, const char *> joystick[] = {
        {1303, "512 1 0 -1 1"},
        {1304, "512 0 0 -1 1"},
        {1305, "100 0 5 -1 1"},
        {1306, "101 0 5 -1 1"},
        {1307, "102 0 5 -1 1"},
        {1308, "103 0 5 -1 1"},
        {1309, "109 0 5 -1 1"},
        {1310, "106 0 5 -1 1"},
        {1311, "108 0 5 -1 1"},
        {1312, "107 0 5 -1 1"},
        {1313, ""},
        {1314, "104 0 0 -1 1"},
        {1315, "105 0 0 -1 1"},
        {1316, ""},
    };
    for (const auto &[code, expected] : joystick)
        add(kJoystick, code, expected);
    add(1001, 3021, ""); // no device of the managers
}

void tst_devices::everyCodeIsTranslated()
{
    QFETCH(const Step, step);
    QFETCH(const QString, expected);
    QVERIFY(Start());

    const QStringList lines = Run({step});

    QCOMPARE(lines.join(';'), expected);
    const bool is_command = !expected.isEmpty() && expected.at(4) == '0';
    QCOMPARE(Coordinator()->GetEventStatus(), is_command);
}

void tst_devices::sequencesDropRepeatsAsEachDeviceDoes_data()
{
    QTest::addColumn<Steps>("steps");
    QTest::addColumn<QStringList>("expected");
    const auto serial = [](quint32 first, quint32 second = 0) {
        return Step{kSerial, first, second};
    };
    const auto keyboard = [](quint32 first, quint32 second = 0) {
        return Step{kKeyboard, first, second};
    };
    const auto joystick = [](quint32 first, quint32 second = 0) {
        return Step{kJoystick, first, second};
    };
    const Step serial_mode = serial(3052);
    // Buttons 3 and 4 stand for 119, the mode, in these rows; 10 is key 5102.
    const Step keyboard_mode = keyboard(5102);
    const Step joystick_mode = joystick(1304, 3);

    QTest::newRow("serial, camera: same operation and speed")
        << Steps{serial(3025, 1), serial(3025, 1), serial(3021, 4), serial(3025, 5)}
        << QStringList{"100 0 4 0 0", "100 0 5 0 0"};
    QTest::newRow("serial, windows: same operation at any speed")
        << Steps{serial_mode, serial(3021, 3), serial(3021, 9)} << QStringList{"100 0 3 0 1"};
    QTest::newRow("serial, camera: stop")
        << Steps{serial(3021, 3), serial(3030), serial(3030), serial(3021, 3)}
        << QStringList{"100 0 3 0 0", "100 1 0 0 0", "100 0 3 0 0"};
    QTest::newRow("serial, windows: the stop is taken for a repeat")
        << Steps{serial_mode, serial(3021, 3), serial(3030)} << QStringList{"100 0 3 0 1"};
    QTest::newRow("serial, camera: the pair counts as moves, so its stop is lost")
        << Steps{serial(3011), serial(3011), serial(3030)} << QStringList{"104 0 0 0 0"};
    QTest::newRow("serial: what is no move repeats")
        << Steps{serial(3013), serial(3013), serial(3030)}
        << QStringList{"112 0 0 0 0", "112 0 0 0 0", "112 1 0 0 0"};

    QTest::newRow("USB keyboard, windows: same operation at any speed, stops pass")
        << Steps{keyboard(5201, 3), keyboard(5201, 9), keyboard(5209)}
        << QStringList{"100 0 3 0 1", "100 1 0 0 1"};
    QTest::newRow("USB keyboard, camera: same operation and speed")
        << Steps{keyboard_mode, keyboard(5201, 3), keyboard(5201, 3), keyboard(5201, 9)}
        << QStringList{"100 0 3 0 0", "100 0 9 0 0"};
    QTest::newRow("USB keyboard, camera: the stop of a move of speed 0 is a repeat")
        << Steps{keyboard_mode, keyboard(5201, 0), keyboard(5209)} << QStringList{"100 0 0 0 0"};
    QTest::newRow("USB keyboard: the pair repeats")
        << Steps{keyboard(5210), keyboard(5210)} << QStringList{"104 0 0 0 1", "104 0 0 0 1"};
    QTest::newRow("USB keyboard: the stop of another key takes the move's")
        << Steps{keyboard(5201, 3), keyboard(5104, 1), keyboard(5209)}
        << QStringList{"100 0 3 0 1", "512 1 0 0 1"};

    QTest::newRow("joystick, windows: same operation at any speed, stops pass")
        << Steps{joystick(1305, 3), joystick(1305, 9), joystick(1313)}
        << QStringList{"100 0 3 -1 1", "100 1 0 -1 1"};
    QTest::newRow("joystick, camera: same operation and speed")
        << Steps{joystick_mode, joystick(1305, 3), joystick(1305, 3), joystick(1305, 9)}
        << QStringList{"100 0 3 -1 0", "100 0 9 -1 0"};
    QTest::newRow("joystick: releasing the mode button does nothing but end the move")
        << Steps{joystick(1305, 3), joystick(1303, 3), joystick(1313)}
        << QStringList{"100 0 3 -1 1"};
    QTest::newRow("joystick: both ways of the mode")
        << Steps{joystick_mode, joystick_mode, joystick(1305, 3)} << QStringList{"100 0 3 -1 1"};
}

void tst_devices::sequencesDropRepeatsAsEachDeviceDoes()
{
    QFETCH(const Steps, steps);
    QFETCH(const QStringList, expected);
    special_operation = Operation(119);
    special_key = 10; // key 5102 and button 3
    QVERIFY(Start());

    QCOMPARE(Run(steps), expected);
}

void tst_devices::stopsAreAlwaysSentWhenTheHostWantsThat_data()
{
    QTest::addColumn<Steps>("steps");
    QTest::addColumn<QString>("last");
    QTest::newRow("serial zoom") << Steps{{kSerial, 3011}, {kSerial, 3030}} << "104 1 0 0 0";
    QTest::newRow("serial, windows")
        << Steps{{kSerial, 3052}, {kSerial, 3021, 3}, {kSerial, 3030}} << "100 1 0 0 1";
    QTest::newRow("speed 0") << Steps{{kSerial, 3021, 0}, {kSerial, 3030}} << "100 1 0 0 0";
    QTest::newRow("another key was released meanwhile")
        << Steps{{kKeyboard, 5201, 3}, {kKeyboard, 5104, 1}, {kKeyboard, 5209}} << "100 1 0 0 1";
    QTest::newRow("a button was pressed and released meanwhile") << Steps{{kJoystick, 1305, 3},
                                                                          {kJoystick, 1304, 0},
                                                                          {kJoystick, 1303, 0},
                                                                          {kJoystick, 1313}}
                                                                 << "100 1 0 -1 1";
}

void tst_devices::stopsAreAlwaysSentWhenTheHostWantsThat()
{
    QFETCH(Steps, steps);
    QFETCH(const QString, last);
    QVERIFY(Start());
    Coordinator()->SetStopsAlwaysSent(true);

    QCOMPARE(Run(steps).constLast(), last);
    QVERIFY(Run({steps.constLast()}).isEmpty()); // there is nothing left to stop
}

void tst_devices::devicesThatComeAndGoAreTold()
{
    auto *const keyboard = CZellUSBKeyboardControlManager::Instance();
    auto *const joystick = CUSBJoystickControlManager::Instance();
    QSignalSpy keyboards(keyboard, &CZellUSBKeyboardControlManager::SignalSwitchToUsbKeyboardMode);
    QSignalSpy joysticks(joystick, &CUSBJoystickControlManager::SignalSwitchToUsbJostickMode);
    QVERIFY(Start());
    special_key = 10;
    special_operation = Operation(119);

    QVERIFY(Run({{kKeyboard, 5001}, {kJoystick, 1301}}).isEmpty());
    QCOMPARE(int(keyboard->ConnetZellUSBJoystickType()), 2);
    QCOMPARE(int(joystick->ConnetZellUSBJoystickType()), 1);
    QVERIFY(Run({{kKeyboard, 5002}, {kJoystick, 1302}}).isEmpty());
    QCOMPARE(int(keyboard->ConnetZellUSBJoystickType()), 0);
    QCOMPARE(int(joystick->ConnetZellUSBJoystickType()), 0);
    const Steps modes = {{kSerial, 3052},   {kSerial, 3052},      {kKeyboard, 5102},
                         {kKeyboard, 5102}, {kJoystick, 1304, 3}, {kJoystick, 1304, 3}};
    QVERIFY(Run(modes).isEmpty());

    QCOMPARE(keyboards.count(), 2);
    QCOMPARE(joysticks.count(), 2);
    QCOMPARE(keyboards.at(0).at(0).value<KeyboradData::ModUsb>(), KeyboradData::kUsbKeyboard);
    QCOMPARE(joysticks.at(1).at(0).value<KeyboradData::ModUsb>(), KeyboradData::kDisconnected);
    // The texts are looked up by these keys; the test installs no translation.
    const QStringList expected = {
        "TheUSBKeyboardIsDetected 7",     "USBJoystickDeviceIsFound 7",
        "TheUSBKeyboardDisconnected 0",   "TheUSBJoystickDisconnected 0",
        "USBJoystickIsCurrentjebLzucZ 0", "USBRockerIsCurrentlyDLwSBpeZ 0", // serial
        "USBRockerIsCurrentlyDLwSBpeZ 0", "USBJoystickIsCurrentjebLzucZ 0", // USB keyboard
        "USBRockerIsCurrentlyDLwSBpeZ 0", "USBJoystickIsCurrentjebLzucZ 0", // joystick
    };
    QCOMPARE(tips_, expected);
}

void tst_devices::slotSeesTheStateBefore()
{
    auto *const joystick = CUSBJoystickControlManager::Instance();
    KeyboradData::ModUsb seen = KeyboradData::kUsbKeyboardWall;
    connect(joystick, &CUSBJoystickControlManager::SignalSwitchToUsbJostickMode, this,
            [&] { seen = joystick->ConnetZellUSBJoystickType(); });

    QVERIFY(Start());
    Run({{kJoystick, 1301}});

    QCOMPARE(seen, KeyboradData::kDisconnected);
}

void tst_devices::logSpeaksForTheDevice()
{
    QVERIFY(Start());
    Run({{kSerial, 3021, 1}, {kKeyboard, 5101, 7, 2}, {kJoystick, 1305, 3}, {kJoystick, 9}});

    QStringList lines = guard_.LogLines().filter("UserOperate");
    for (QString &line : lines)
        line.remove(QRegExp("\\(\\d+\\)\\]$"));
    const QString serial = "3 UserOperate [Vantor::CZellSerialKeyboardControlManager::InputEvent]";
    const QString keyboard = "3 UserOperate [Vantor::CZellUSBKeyboardControlManager::InputEvent]";
    const QString joystick = "3 UserOperate [Vantor::CUSBJoystickControlManager::InputEvent]";
    const QStringList expected = {
        serial
            + "InputEvent first param:[3021], second "
              "param:[4][ZellSerialKeyboardControlManager.cpp",
        serial
            + "SignalZellUSBKeyboardControl, operation_type:[100], stop_action:[0], speed:[4], "
              "select index:[0], ptz mode:[0][ZellSerialKeyboardControlManager.cpp",
        keyboard
            + "InputEvent first param:[5101], second param:[7], third param:[2]"
              "[ZellUSBKeyboardControlManager.cpp",
        keyboard
            + "SignalZellUSBKeyboardControl, operation_type:[125], stop_action:[0], speed:[0], "
              "select index:[7], ptz mode:[0][ZellUSBKeyboardControlManager.cpp",
        joystick + "InputEvent first param:[1305], second param:[3][USBJoystickControlManager.cpp",
        joystick
            + "SignalUSBJostickControl, operation_type:[100], stop_action:[0], speed:[3], "
              "wnd control mode:[1][USBJoystickControlManager.cpp",
        joystick + "InputEvent first param:[9], second param:[0][USBJoystickControlManager.cpp",
    };
    QCOMPARE(lines, expected);
}

void tst_devices::portsOpenOnceEach()
{
    QVERIFY(!Start(Com(5)));
    QVERIFY(Coordinator()->OpenPCSerial(Com(1)));
    QVERIFY(!Coordinator()->OpenPCSerial(Com(1)));
    QVERIFY(!Coordinator()->OpenPCSerial(Com(0))); // leaves the open one alone
    QVERIFY(Coordinator()->OpenPCSerial(Com(4)));
    driver_->opens = false;
    QVERIFY(!Coordinator()->OpenPCSerial(Com(2)));
    QVERIFY(Coordinator()->ClosePCSerial());
    driver_->opens = true;
    QVERIFY(Coordinator()->OpenPCSerial(Com(2)));
    QVERIFY(Coordinator()->UnInitKeyBoard());
    QVERIFY(Coordinator()->UnInitKeyBoard());

    const QStringList expected = {
        "init",
        "open 1000 COM1 9600 8 1 0 0",
        "close 1000",
        "open 1000 COM4 9600 8 1 0 0",
        "close 1000",
        "open 1000 COM2 9600 8 1 0 0",
        "open 1000 COM2 9600 8 1 0 0",
        "close 1000",
        "uninit",
    };
    QCOMPARE(driver_->calls, expected);
}

void tst_devices::libraryThatDoesNotStartIsNotTriedAgain()
{
    driver_->starts = false;
    QVERIFY(!Start());
    QVERIFY(Start());
    QCOMPARE(driver_->calls, QStringList{"init"});
}

void tst_devices::keyboardsAreIgnoredUntilTheLibraryRuns()
{
    CZellSerialKeyboardControlManager::Instance()->InputEvent(3021, 3);
    CZellUSBKeyboardControlManager::Instance()->InputEvent(5201, 3, 0, nullptr);
    QVERIFY(guard_.LogLines().isEmpty());
    QSignalSpy spy(Coordinator(), &CJoystickKeyboardControlManager::SignalJoystickKeyboardControl);

    CUSBJoystickControlManager::Instance()->InputEvent(1305, 3, nullptr); // joysticks work
    CUSBJoystickControlManager::Instance()->InputEvent(1304, 3, nullptr); // but for buttons

    QCOMPARE(spy.count(), 1);
    QCOMPARE(Line(spy.constFirst()), QString("100 0 3 -1 1"));
}

void tst_devices::otherEventsOfTheSameTypeAreLeftAlone()
{
    QSignalSpy spy(Coordinator(), &CJoystickKeyboardControlManager::SignalJoystickKeyboardControl);
    CUpdateEvent stranger;
    QCoreApplication::sendEvent(Coordinator(), &stranger);
    CJoystickKeyboardEvent none;
    QCOMPARE(none.GetFirstParam(), 0xFFFFFFFF);
    QCoreApplication::sendEvent(Coordinator(), &none);
    CJoystickKeyboardEvent event(kJoystick, 1305, 3, 0, "one", "two");
    const CJoystickKeyboardEvent copy(event);
    QCOMPARE(copy.GetText2(), QString("two"));
    QCoreApplication::sendEvent(Coordinator(), &event);
    QCOMPARE(spy.count(), 1);
}

void tst_devices::deletingWhileTheDeviceFiresIsClean()
{
    for (int round = 0; round < 20; ++round) {
        QVERIFY(Start());
        QSignalSpy spy(Coordinator(),
                       &CJoystickKeyboardControlManager::SignalJoystickKeyboardControl);
        driver_->Fire();
        QTRY_VERIFY(!spy.isEmpty());
        if (round % 2)
            QVERIFY(Coordinator()->UnInitKeyBoard());
        CJoystickKeyboardControlManager::DeleteInstance();
        CJoystickKeyboardControlManager::CreateInstance();
    }
}

// SDL's virtual joystick and a pseudo-terminal, through the default driver.
void tst_devices::realDevicesReachTheSignals()
{
    KeyBoard_SetDriver(nullptr);
    CPseudoTerminal terminal;
    KeyBoard_SetSerialPorts({terminal.Path()});
    auto *const joystick = CUSBJoystickControlManager::Instance();
    QStringList lines;
    connect(Coordinator(), &CJoystickKeyboardControlManager::SignalJoystickKeyboardControl, this,
            [&lines](Operation operation, bool is_stop, int speed, int index) {
                lines << QString("%1 %2 %3 %4").arg(operation).arg(is_stop).arg(speed).arg(index);
            });
    QVERIFY(Start());
    const int device = SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_GAMECONTROLLER, 3, 4, 0);
    QVERIFY2(device >= 0, SDL_GetError());
    QTRY_COMPARE(joystick->ConnetZellUSBJoystickType(), KeyboradData::kUsbJoystick);
    SDL_Joystick *const stick = SDL_JoystickOpen(device);
    QVERIFY(stick);

    // A sweep to and fro that comes to rest: whatever was skipped, its last state arrives.
    SDL_JoystickSetVirtualButton(stick, 2, SDL_PRESSED);
    QTRY_COMPARE(lines, QStringList{"509 0 0 -1"});
    SDL_JoystickSetVirtualButton(stick, 2, SDL_RELEASED);
    QTRY_COMPARE(lines.constLast(), QString("509 1 0 -1"));
    for (int angle = 0; angle <= 1000; ++angle) {
        SDL_JoystickSetVirtualAxis(stick, 0, Sint16(angle * 32));
        SDL_JoystickSetVirtualAxis(stick, 1, Sint16(-angle % 100));
    }
    QTRY_COMPARE(lines.constLast().left(5), QString("103 0"));
    SDL_JoystickSetVirtualAxis(stick, 0, 0);
    QTRY_COMPARE(lines.constLast(), QString("103 1 0 -1"));
    SDL_JoystickSetVirtualAxis(stick, 1, 32767);
    QTRY_COMPARE(lines.constLast(), QString("101 0 63 -1"));

    SDL_JoystickClose(stick);
    QCOMPARE(SDL_JoystickDetachVirtual(device), 0);
    QTRY_COMPARE(joystick->ConnetZellUSBJoystickType(), KeyboradData::kDisconnected);
    QCOMPARE(lines.constLast(), QString("101 1 0 -1"));

    terminal.Write(QByteArray::fromHex("ff010008000912ff010000000001"));
    QTRY_COMPARE(lines.constLast(), QString("100 1 0 0"));
    QVERIFY(Coordinator()->ClosePCSerial()); // before the terminal goes
    KeyBoard_SetSerialPorts({});
}

QTEST_GUILESS_MAIN(tst_devices)
#include "tst_devices.moc"
