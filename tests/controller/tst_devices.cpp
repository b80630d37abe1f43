// SPDX-License-Identifier: MIT
#include "support/PseudoTerminal.h"
#include "support/Test.h"
#include "support/VirtualStick.h"

#include <Faceplate/NewInfoDlg.h>
#include <KeyBoard/KeyBoard.h>
#include <Vantor/CJoystickKeyboardControlManager>
#include <Vantor/CJoystickKeyboardEvent>
#include <Vantor/CUSBJoystickControlManager>
#include <Vantor/CUpdateEvent>
#include <Vantor/CZellSerialKeyboardControlManager>
#include <Vantor/CZellUSBKeyboardControlManager>
#include <common/Translate.h>

using namespace Vantor;
using Operation = KeyboradData::KeyOperation::Type;
using Com = ResourceManager::SystemConfig::COMJoystick;

namespace {

constexpr quint32 kSerial = 1000;
constexpr quint32 kJoystick = 1002;
constexpr quint32 kKeyboard = 1003;
constexpr auto kCommand = &CJoystickKeyboardControlManager::SignalJoystickKeyboardControl;
const QHash<QChar, quint32> kDevices = {{'s', kSerial}, {'k', kKeyboard}, {'j', kJoystick}};

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
        calls << QString::asprintf("open %u %s %u %d %d %d %d", id, param.port_name,
                                   param.baud_rate, param.data_bits, param.stop_bits, param.parity,
                                   param.flow_control);
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

// Buttons and keys give 500 plus their number, except for the key that a test makes special.
int special_key = -1;
Operation special_operation = Operation(0);

template <class KeyType> Operation Translated(KeyType key)
{
    return key == special_key ? special_operation : Operation(500 + int(key));
}

// device, first, operations of its codes from the first on: 0 for a code that emits nothing,
// negative for a stop
const Rows<char, int, QVector<int>> kCodesRows = {
    {"serial selections", 's', 2000, {0, 124, 125, 0}},
    {"serial keys", 's', 3001, {0, 116, 117, 0}},
    {"serial zoom, focus, iris", 's', 3010, {0, 104, 105, 112, 113, 114, 115, 0}},
    {"serial moves, twice", 's', 3020, {0, 100, 101, 102, 103, 100, 101, 102, 103, 118}},
    {"serial stop of nothing, preset, mode", 's', 3049, {0, 200, 0, 0, 0}},
    {"serial, the second of a key", 's', 3059, {0, 118, 0}},
    {"keyboard keys", 'k', 5100, {0, 124, 510, 511, 512, 513, 514, 0}},
    {"keyboard moves", 'k', 5200, {0, 100, 101, 102, 103, 109, 106, 108, 107, -107}},
    {"keyboard pair", 'k', 5210, {104, 105, 0}},
    {"joystick moves", 'j', 1304, {512, 100, 101, 102, 103, 109, 106, 108, 107, -107}},
    {"joystick pair", 'j', 1314, {104, 105, 0}},
    {"a device that the managers do not know", 'x', 3021, {0}},
};

// What devices send, as "s3021:3 k5101:5:2 j1305:3": device, code, second and third parameter;
// "end" ends the devices. Commands are "operation stop speed index window-control", with commas.
// sent, commands
const Rows<const char *, const char *> kCommandRows = {
    {"serial index", "s2001:5", "124 0 0 5 0"},
    {"serial index 1 counts as 4", "s3050:1", "200 0 0 4 0"},
    {"serial speed 1 counts as 4", "s3025:1", "100 0 4 0 0"},
    {"serial speed beyond int", "s3025:4294967295", "100 0 -1 0 0"},
    {"keyboard, second window", "k5101:5:2", "125 0 0 5 1"},
    {"keyboard keys released", "k5104:1 k5105:1 k5106:1", "512 1 0 0 1, 513 1 0 0 1, 514 1 0 0 1"},
    {"joystick button", "j1304:5 j1303:5", "512 0 0 -1 1, 512 1 0 -1 1"},
    {"serial, camera: the same twice", "s3025:1 s3025:1 s3021:4 s3025:5",
     "100 0 4 0 0, 100 0 5 0 0"},
    {"serial, windows: same operation at any speed", "s3052 s3021:3 s3021:9", "100 0 3 0 1"},
    {"serial camera: stop", "s3021:3 s3030 s3030 s3021:3", "100 0 3 0 0, 100 1 0 0 0, 100 0 3 0 0"},
    {"serial, windows: the stop is taken for a repeat", "s3052 s3021:3 s3030", "100 0 3 0 1"},
    {"serial, camera: the pair counts as moves, no stop", "s3011 s3011 s3030", "104 0 0 0 0"},
    {"serial: others may repeat", "s3013 s3013 s3030", "112 0 0 0 0, 112 0 0 0 0, 112 1 0 0 0"},
    {"keyboard, windows: same operation at any speed, stops pass", "k5201:3 k5201:9 k5209",
     "100 0 3 0 1, 100 1 0 0 1"},
    {"keyboard, camera: the same twice", "k5102 k5201:3 k5201:3 k5201:9",
     "100 0 3 0 0, 100 0 9 0 0"},
    {"keyboard, camera: the stop at speed 0 is a repeat", "k5102 k5201:0 k5209", "100 0 0 0 0"},
    {"keyboard: another key's stop takes it", "k5201:3 k5104:1 k5209", "100 0 3 0 1, 512 1 0 0 1"},
    {"joystick, windows: same operation at any speed, stops pass", "j1305:3 j1305:9 j1313",
     "100 0 3 -1 1, 100 1 0 -1 1"},
    {"joystick: releasing the mode button does nothing but end the move", "j1305:3 j1303:3 j1313",
     "100 0 3 -1 1"},
    {"ending during a move sends no stop", "s3021:3 end", "100 0 3 0 0"},
};

// sent, last command
const Rows<const char *, const char *> kStopRows = {
    {"serial zoom", "s3011 s3030", "104 1 0 0 0"},
    {"serial, windows", "s3052 s3021:3 s3030", "100 1 0 0 1"},
    {"speed 0", "s3021:0 s3030", "100 1 0 0 0"},
    {"a preset was called while focusing", "s3013 s3050:2 s3030", "112 1 0 0 0"},
    {"another key was released meanwhile", "k5201:3 k5104:1 k5209", "100 1 0 0 1"},
    {"a button was pressed and let go meanwhile", "j1305:3 j1304:0 j1303:0 j1313", "100 1 0 -1 1"},
    {"the devices end during a joystick's move", "j1305:3 end", "100 1 0 -1 1"},
    {"the devices end during a serial zoom", "s3012 end", "105 1 0 0 0"},
    {"the devices end while a focus key is held", "j1304:3 end", "112 1 0 -1 1"},
};

// sent, who deletes ("": a slot)
const Rows<const char *, const char *> kDeletionRows = {
    {"slot of a joystick found", "j1301", ""},
    {"slot of a keyboard gone", "k5002", ""},
    {"slot of the mode", "s3052", ""},
    {"slot of a serial move", "s3021:3", ""},
    {"slot of a keyboard's move", "k5201:3", ""},
    {"slot of a joystick's move", "j1305:3", ""},
    {"slot of the stop at the end", "end", ""},
    {"presenter of a joystick found", "j1301", "presenter"},
    {"presenter of a keyboard gone", "k5002", "presenter"},
    {"presenter of the mode", "s3052", "presenter"},
};

} // namespace

class tst_devices : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override
    {
        Vantor::RemoveTranslations(); // the keys
        driver_ = std::make_unique<CTestDriver>();
        KeyBoard_SetDriver(driver_.get());
        tips_.clear();
        Faceplate::CNewInfoDlg::SetPresenter([this](const Faceplate::CStruInfoTipsData &data) {
            tips_ << QString("%1 %2").arg(data.text).arg(data.information_type);
        });
        CJoystickKeyboardControlManager::CreateInstance();
        special_key = -1;
    }

    void TearDown() override
    {
        CJoystickKeyboardControlManager::DeleteInstance();
        KeyBoard_SetDriver(nullptr);
        Faceplate::CNewInfoDlg::SetPresenter(nullptr);
    }

    bool Start(Com com = Com(1))
    {
        return Coordinator()->InitKeyBoard(
            com, &Translated<KeyboradData::USBKeyboardOperation::KeyType>,
            &Translated<KeyboradData::JoystickOperation::KeyType>, nullptr);
    }

    // Key 5102 and the buttons' function of 10, which is button 3.
    static void LetKeyTenMean(Operation operation)
    {
        special_key = 10;
        special_operation = operation;
    }

    QString Run(const QString &sent)
    {
        QStringList lines;
        QObject context;
        connect(Coordinator(), kCommand, &context,
                [&lines](int operation, bool stops, int speed, int index, bool window, bool pc) {
                    lines << QString::asprintf("%d %d %d %d %d%s", operation, stops, speed, index,
                                               window, pc ? " from PC" : "");
                });
        const QStringList steps = sent.split(' ');
        for (const QString &step : steps) {
            const QStringList numbers = (step.mid(1) + ":0:0").split(':');
            if (step == "end")
                Coordinator()->UnInitKeyBoard();
            else
                driver_->Send(kDevices.value(step[0], 1001), numbers[0].toUInt(),
                              numbers[1].toUInt(), numbers[2].toUInt());
            QCoreApplication::sendPostedEvents();
        }
        return lines.join(", ");
    }

    std::unique_ptr<CTestDriver> driver_;
    QStringList tips_;

private Q_SLOTS:
    void everyCodeHasItsOperation_data() { AddRows(kCodesRows); }
    void everyCodeHasItsOperation()
    {
        const auto &[name, device, first, operations] = FetchRow(kCodesRows);
        QVERIFY(Start());
        for (int i = 0; i < operations.size(); ++i) {
            const int operation = operations.at(i);
            const QString expected =
                operation ? QString("%1 %2").arg(qAbs(operation)).arg(operation < 0) : QString();
            QCOMPARE(Run(QString("%1%2:5").arg(device).arg(first + i)).section(' ', 0, 1),
                     expected);
        }
        QCOMPARE(Coordinator()->GetEventStatus(), operations.size() > 1);
    }

    void codesBecomeCommandsUnlessTheyRepeat_data() { AddRows(kCommandRows); }
    void codesBecomeCommandsUnlessTheyRepeat()
    {
        const auto &[name, sent, commands] = FetchRow(kCommandRows);
        LetKeyTenMean(Operation(119));
        QVERIFY(Start());
        QCOMPARE(Run(sent), QString(commands));
    }

    void everyMoveGetsOneStopWhenTheHostWantsThat_data() { AddRows(kStopRows); }
    void everyMoveGetsOneStopWhenTheHostWantsThat()
    {
        const auto &[name, sent, commands] = FetchRow(kStopRows);
        LetKeyTenMean(Operation(112));
        QVERIFY(Start());
        Coordinator()->SetStopsAlwaysSent(true);

        QCOMPARE(Run(sent).section(", ", -1), QString(commands));
        QCOMPARE(Run(QString(sent).section(' ', -1)), QString()); // nothing is left to stop
    }

    void devicesThatComeAndGoAreReported()
    {
        auto *const keyboard = CZellUSBKeyboardControlManager::Instance();
        auto *const joystick = CUSBJoystickControlManager::Instance();
        // With the state that slots still see, which is the one before.
        const auto modes = std::make_shared<QList<int>>();
        connect(keyboard, &CZellUSBKeyboardControlManager::SignalSwitchToUsbKeyboardMode, this,
                [=](int mode) { *modes << mode << keyboard->ConnetZellUSBJoystickType(); });
        connect(joystick, &CUSBJoystickControlManager::SignalSwitchToUsbJostickMode, this,
                [=](int mode) { *modes << mode << joystick->ConnetZellUSBJoystickType(); });
        QVERIFY(Start());
        LetKeyTenMean(Operation(119));

        QCOMPARE(Run("k5001 j1301 k5002 j1302"), QString());
        QCOMPARE(Run("s3052 s3052 k5102 k5102 j1304:3 j1304:3"), QString());

        QCOMPARE(*modes, QList<int>({2, 0, 1, 0, 0, 2, 0, 1}));
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

    void devicesBeginWithTheCameraWhenTheHostWantsThat()
    {
        Coordinator()->SetCameraFirst(true);
        QSignalSpy switched(Coordinator(),
                            &CJoystickKeyboardControlManager::SignalControlModeSwitched);
        LetKeyTenMean(Operation(119));
        QVERIFY(Start() && !CUSBJoystickControlManager::Instance()->IsWindowControl());
        QCOMPARE(Run("j1305:3 j1305:9 k5201:3"),
                 QString("100 0 3 -1 0, 100 0 9 -1 0, 100 0 3 0 0"));
        Run("j1304:3");
        QVERIFY(CUSBJoystickControlManager::Instance()->IsWindowControl());
        QCOMPARE(switched.count(), 1);
        Run("s3013");
        Coordinator()->SetEventStatus(false);
        QCOMPARE(Run("s3030"), QString("112 1 0 0 0"));
        QVERIFY(!Coordinator()->GetEventStatus()); // a stop is no use of the devices
    }

    // A slot, and a presenter that runs an event loop, may delete the coordinator and all devices.
    void deletionInEachCallIsClean_data() { AddRows(kDeletionRows); }
    void deletionInEachCallIsClean()
    {
        using Manager = CJoystickKeyboardControlManager;
        const auto &[name, sent, who] = FetchRow(kDeletionRows);
        QVERIFY(Start());
        Coordinator()->SetStopsAlwaysSent(true);
        Run("j1306:3 s3022:3");
        if (*who) {
            Faceplate::CNewInfoDlg::SetPresenter([](const Faceplate::CStruInfoTipsData &) {
                QEventLoop loop;
                QTimer::singleShot(0, &loop, [&loop] {
                    Manager::DeleteInstance();
                    loop.quit();
                });
                loop.exec();
            });
        } else {
            using Joystick = CUSBJoystickControlManager;
            using Keyboard = CZellUSBKeyboardControlManager;
            const auto end = &Manager::DeleteInstance;
            connect(Coordinator(), &Manager::SignalJoystickKeyboardControl, end);
            connect(Coordinator(), &Manager::SignalControlModeSwitched, end);
            connect(Joystick::Instance(), &Joystick::SignalSwitchToUsbJostickMode, end);
            connect(Keyboard::Instance(), &Keyboard::SignalSwitchToUsbKeyboardMode, end);
        }
        Run(sent);
        QVERIFY(!Coordinator() && !CUSBJoystickControlManager::Instance());
    }

    void logSpeaksForTheDevice()
    {
        QVERIFY(Start());
        Run("s3021:1 k5101:7:2 j1305:3 j9");

        // The class of a line is also in the name of its file.
        const QRegularExpression form(
            "^3 UserOperate \\[Vantor::C(\\w+)ControlManager::InputEvent\\]"
            "(.*)\\[\\1ControlManager\\.cpp\\(\\d+\\)\\]$");
        const QStringList expected = {
            "ZellSerialKeyboard: InputEvent first param:[3021], second param:[4]",
            // NOLINTNEXTLINE(bugprone-suspicious-missing-comma): long lines are in pieces
            "ZellSerialKeyboard: SignalZellUSBKeyboardControl, operation_type:[100], "
            "stop_action:[0], speed:[4], select index:[0], ptz mode:[0]",
            "ZellUSBKeyboard: InputEvent first param:[5101], second param:[7], third param:[2]",
            "ZellUSBKeyboard: SignalZellUSBKeyboardControl, operation_type:[125], "
            "stop_action:[0], speed:[0], select index:[7], ptz mode:[0]",
            "USBJoystick: InputEvent first param:[1305], second param:[3]",
            "USBJoystick: SignalUSBJostickControl, operation_type:[100], stop_action:[0], "
            "speed:[3], wnd control mode:[1]",
            "USBJoystick: InputEvent first param:[9], second param:[0]",
        };
        QCOMPARE(guard_.LogLines().filter("UserOperate").replaceInStrings(form, "\\1: \\2"),
                 expected);
    }

    void portsOpenOnceEach()
    {
        QVERIFY(!Start(Com(5)) && Coordinator()->OpenPCSerial(Com(1)));
        QVERIFY(!Coordinator()->OpenPCSerial(Com(1)));
        QVERIFY(!Coordinator()->OpenPCSerial(Com(0))); // leaves the open one alone
        QVERIFY(Coordinator()->OpenPCSerial(Com(4)));
        driver_->opens = false;
        QVERIFY(!Coordinator()->OpenPCSerial(Com(2)) && Coordinator()->ClosePCSerial());
        driver_->opens = true;
        QVERIFY(Coordinator()->OpenPCSerial(Com(2)) && Coordinator()->UnInitKeyBoard());
        QVERIFY(Coordinator()->UnInitKeyBoard());

        QCOMPARE(driver_->calls.at(1), QString("open 1000 COM1 9600 8 1 0 0"));
        QCOMPARE(driver_->calls.replaceInStrings(QRegularExpression(" 1000| 9600.*"), "").join(' '),
                 QString("init open COM1 close open COM4 close open COM2 open COM2 close uninit"));
        driver_->calls.clear();
        driver_->starts = false;
        QVERIFY(!Start());
        QVERIFY(Start()); // not tried again
        QCOMPARE(driver_->calls, QStringList{"init"});
    }

    void keyboardsAreIgnoredUntilTheLibraryRuns()
    {
        CZellSerialKeyboardControlManager::Instance()->InputEvent(3021, 3);
        CZellUSBKeyboardControlManager::Instance()->InputEvent(5201, 3, 0, nullptr);
        QVERIFY(guard_.LogLines().isEmpty());
        QSignalSpy spy(Coordinator(), kCommand);

        CUSBJoystickControlManager::Instance()->InputEvent(1305, 3, nullptr); // joysticks work
        CUSBJoystickControlManager::Instance()->InputEvent(1304, 3, nullptr); // but for buttons

        QCOMPARE(spy.count(), 1);
        CUpdateEvent stranger; // of the same type
        CJoystickKeyboardEvent copy(CJoystickKeyboardEvent(kJoystick, 1306, 3, 0, "one", "two"));
        for (QEvent *const event : std::initializer_list<QEvent *>{&stranger, &copy})
            QCoreApplication::sendEvent(Coordinator(), event);
        QCOMPARE(copy.GetText2(), QString("two"));
        QCOMPARE(spy.count(), 2);
    }

    void deletingWhileTheDeviceFiresIsClean()
    {
        for (int round = 0; round < 20; ++round) {
            QVERIFY(Start());
            QSignalSpy spy(Coordinator(), kCommand);
            driver_->Fire();
            QTRY_VERIFY(!spy.isEmpty());
            if (round % 2)
                QVERIFY(Coordinator()->UnInitKeyBoard());
            CJoystickKeyboardControlManager::DeleteInstance();
            CJoystickKeyboardControlManager::CreateInstance();
        }
    }

    // SDL's virtual joystick and a pseudo-terminal, through the default driver.
    void realDevicesReachTheSignals()
    {
        KeyBoard_SetDriver(nullptr);
        CPseudoTerminal terminal;
        KeyBoard_SetSerialPorts({terminal.Path()});
        QStringList lines;
        connect(Coordinator(), kCommand, this, [&lines](int operation, bool is_stop, int speed) {
            lines << QString("%1 %2 %3").arg(operation).arg(is_stop).arg(speed);
        });
        QVERIFY(Start());
        {
            const CVirtualStick stick(SDL_JOYSTICK_TYPE_UNKNOWN, 3, 0, 0);
            QTRY_COMPARE(CUSBJoystickControlManager::Instance()->ConnetZellUSBJoystickType(),
                         KeyboradData::kUsbJoystick);
            stick.SetAxis(1, 32767);
            QTRY_COMPARE(lines, QStringList{"101 0 63"});
        }
        QTRY_COMPARE(lines.constLast(), QString("101 1 0"));
        terminal.Write(QByteArray::fromHex("ff010008000912ff010000000001"));
        QTRY_COMPARE(lines.constLast(), QString("100 1 0"));
        QVERIFY(Coordinator()->ClosePCSerial()); // before the terminal goes
        KeyBoard_SetSerialPorts({});
    }
};

QTEST_GUILESS_MAIN(tst_devices)
#include "tst_devices.moc"
