// SPDX-License-Identifier: MIT
// The default driver on real parts: SDL's virtual joystick and a pseudo-terminal.
#include "support/PseudoTerminal.h"
#include "support/TestGuard.h"

#include <KeyBoard/JoystickMotion.h>
#include <KeyBoard/KeyBoard.h>
#include <KeyBoard/PelcoD.h>

#include <SDL.h>

#include <QtCore/QFile>
#include <QtCore/QMutex>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <random>

namespace {

constexpr quint32 kSerialId = 1000;
constexpr KeyBoardSerialParam kPort{"COM1", 9600, 8, 1, 0, 0};

// What the driver told, as "type code value".
class CInbox
{
public:
    static int Take(quint32 type, quint32 code, quint32 value, quint32, const char *, const char *,
                    void *inbox)
    {
        auto *const self = static_cast<CInbox *>(inbox);
        const QMutexLocker lock(&self->mutex_);
        self->lines_ << QString("%1 %2 %3").arg(type).arg(code).arg(value);
        return 0;
    }

    QStringList Lines() const
    {
        const QMutexLocker lock(&mutex_);
        return lines_;
    }

    void Clear()
    {
        const QMutexLocker lock(&mutex_);
        lines_.clear();
    }

private:
    mutable QMutex mutex_;
    QStringList lines_; // written by the driver's thread
};

QByteArray Frame(quint8 command1, quint8 command2, quint8 data1, quint8 data2)
{
    const quint8 address = 1;
    const auto sum = quint8(address + command1 + command2 + data1 + data2);
    const quint8 bytes[] = {0xFF, address, command1, command2, data1, data2, sum};
    return {reinterpret_cast<const char *>(bytes), int(sizeof bytes)};
}

QString CodeOf(quint8 command1, quint8 command2, quint8 data1, quint8 data2)
{
    const auto code = KeyBoard::TranslatePelco({1, command1, command2, data1, data2});
    return QString("%1 %2").arg(code.code).arg(code.value);
}

} // namespace

class tst_keyboard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard_.Begin();
        inbox_.Clear();
    }

    void cleanup()
    {
        KeyBoard_Uninit();
        KeyBoard_SetSerialPorts({});
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void framesBecomeCodes_data();
    void framesBecomeCodes();
    void readerFindsEveryWholeFrameInNoise();
    void stickMovesInEightDirectionsBeyondTheDeadZone_data();
    void stickMovesInEightDirectionsBeyondTheDeadZone();
    void serialKeyboardIsHeardInWholeAndHalfFrames();
    void portThatDisappearsIsFoundAgain();
    void portsThatCannotBeOpenedAreRefused();
    void joystickIsFoundMovedPressedAndLost();
    void libraryRunsOnceAndEndsCleanly();

private:
    CTestGuard guard_;
    CInbox inbox_;
};

void tst_keyboard::framesBecomeCodes_data()
{
    QTest::addColumn<QList<int>>("frame");
    QTest::addColumn<QString>("expected");
    const auto add = [](const char *name, const QList<int> &frame, const char *expected) {
        QTest::newRow(name) << frame << QString(expected);
    };
    add("stop", {0, 0, 0, 0}, "3030 0");
    add("up", {0, 0x08, 0, 63}, "3021 63");
    add("down", {0, 0x10, 0, 1}, "3022 1");
    add("left", {0, 0x04, 17, 0}, "3023 17");
    add("right", {0, 0x02, 255, 0}, "3024 255");
    add("up and right, panning faster", {0, 0x0A, 20, 10}, "3024 20");
    add("up and right, tilting faster", {0, 0x0A, 10, 20}, "3021 20");
    add("down and left, as fast", {0, 0x14, 9, 9}, "3023 9");
    add("zoom in", {0, 0x20, 0, 0}, "3011 0");
    add("zoom out", {0, 0x40, 0, 0}, "3012 0");
    add("focus near", {0x01, 0, 0, 0}, "3013 0");
    add("focus far", {0, 0x80, 0, 0}, "3014 0");
    add("iris open", {0x02, 0, 0, 0}, "3015 0");
    add("iris close", {0x04, 0, 0, 0}, "3016 0");
    add("set preset 7", {0, 0x03, 0, 7}, "2001 7");
    add("clear preset 7", {0, 0x05, 0, 7}, "2002 7");
    add("call preset 7", {0, 0x07, 0, 7}, "3050 7");
    add("auxiliary 1", {0, 0x09, 0, 1}, "3052 0");
    add("auxiliary 2", {0, 0x09, 0, 2}, "3002 0");
    add("auxiliary 3", {0, 0x09, 0, 3}, "3003 0");
    add("auxiliary 4", {0, 0x09, 0, 4}, "3029 0");
    add("auxiliary 5 is unknown", {0, 0x09, 0, 5}, "0 0");
    add("an extended command that is unknown", {0, 0x1F, 0, 1}, "0 0");
    add("camera on, which no key stands for", {0x88, 0, 0, 0}, "0 0");
}

void tst_keyboard::framesBecomeCodes()
{
    QFETCH(const QList<int>, frame);
    QTEST(
        CodeOf(quint8(frame.at(0)), quint8(frame.at(1)), quint8(frame.at(2)), quint8(frame.at(3))),
        "expected");
}

void tst_keyboard::readerFindsEveryWholeFrameInNoise()
{
    std::mt19937 random(1);
    KeyBoard::CPelcoReader reader;
    QList<int> sent;
    QList<int> seen;
    QByteArray stream;
    for (int i = 0; i < 3000; ++i) {
        // Noise holds no sync byte. Half frames do, of three bytes at least: less may make a sum
        // right with what follows.
        for (unsigned length = random() % 4; length > 0; --length)
            stream += char(random() % 255);
        const auto speed = quint8(random() % 64);
        const QByteArray frame = Frame(0, 0x08, quint8(i % 64), speed);
        if (random() % 3 == 0)
            stream += frame.left(3 + int(random() % 4));
        stream += frame;
        sent << i % 64 * 64 + speed;
    }
    while (!stream.isEmpty()) {
        const int length = 1 + int(random() % 20);
        reader.Read(stream.left(length), [&seen](const KeyBoard::PelcoFrame &frame) {
            seen << frame.data1 * 64 + frame.data2;
        });
        stream.remove(0, length);
    }
    QCOMPARE(seen, sent);
}

void tst_keyboard::stickMovesInEightDirectionsBeyondTheDeadZone_data()
{
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("y");
    QTest::addColumn<int>("zoom");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("speed");
    QTest::newRow("at rest") << 0 << 0 << 0 << 0 << 0;
    QTest::newRow("just in the dead zone") << 8192 << 0 << 8192 << 0 << 0;
    QTest::newRow("just beyond it") << 8193 << 0 << 0 << 1308 << 1;
    QTest::newRow("up") << 0 << -32768 << 0 << 1305 << 63;
    QTest::newRow("down") << 0 << 32767 << 0 << 1306 << 63;
    QTest::newRow("left") << -32768 << 100 << 0 << 1307 << 63;
    QTest::newRow("right, halfway") << 20480 << 0 << 0 << 1308 << 32;
    QTest::newRow("down right") << 32767 << 32767 << 0 << 1309 << 63;
    QTest::newRow("up left") << -20000 << -20000 << 0 << 1310 << 52;
    QTest::newRow("down left") << -20000 << 20000 << 0 << 1311 << 52;
    QTest::newRow("up right") << 20000 << -20000 << 0 << 1312 << 52;
    QTest::newRow("zoom in") << 0 << 0 << 32767 << 1314 << 0;
    QTest::newRow("zoom out") << 0 << 0 << -32768 << 1315 << 0;
    QTest::newRow("a move goes before zoom") << 0 << -32768 << 32767 << 1305 << 63;
}

void tst_keyboard::stickMovesInEightDirectionsBeyondTheDeadZone()
{
    QFETCH(const int, x);
    QFETCH(const int, y);
    QFETCH(const int, zoom);
    const KeyBoard::JoystickMotion motion = KeyBoard::MotionOf(x, y, zoom);
    QTEST(int(motion.code), "code");
    QTEST(int(motion.speed), "speed");
}

void tst_keyboard::serialKeyboardIsHeardInWholeAndHalfFrames()
{
    CPseudoTerminal terminal;
    QVERIFY(terminal.IsOpen());
    KeyBoard_SetSerialPorts({terminal.Path()});
    QVERIFY(KeyBoard_Init(&CInbox::Take, &inbox_));
    QVERIFY(KeyBoard_OpenSerialKeyBoard(kSerialId, &kPort));

    terminal.Write(Frame(0, 0x08, 0, 9) + "noise" + Frame(0, 0, 0, 0).left(3));
    QTRY_COMPARE(inbox_.Lines(), QStringList{"1000 3021 9"});
    terminal.Write(Frame(0, 0, 0, 0).mid(3));
    QTRY_COMPARE(inbox_.Lines(), QStringList({"1000 3021 9", "1000 3030 0"}));

    inbox_.Clear();
    const int count = 5000;
    for (int i = 0; i < count; ++i)
        terminal.Write(Frame(0, i % 2 ? 0x08 : 0x10, 0, quint8(i % 63 + 1)));
    QTRY_COMPARE_WITH_TIMEOUT(inbox_.Lines().size(), count, 60000);
    for (int i = 0; i < count; ++i)
        QCOMPARE(inbox_.Lines().at(i),
                 QString("1000 %1 %2").arg(i % 2 ? 3021 : 3022).arg(i % 63 + 1));

    QVERIFY(KeyBoard_CloseSerialKeyBoard(kSerialId));
    QVERIFY(!KeyBoard_CloseSerialKeyBoard(kSerialId));
}

void tst_keyboard::portThatDisappearsIsFoundAgain()
{
    guard_.AnnounceLogLines();
    auto terminal = std::make_unique<CPseudoTerminal>();
    QTemporaryDir folder;
    const QString link = folder.filePath("tty");
    QVERIFY(QFile::link(terminal->Path(), link));
    KeyBoard_SetSerialPorts({link});
    QVERIFY(KeyBoard_Init(&CInbox::Take, &inbox_));
    QVERIFY(KeyBoard_OpenSerialKeyBoard(kSerialId, &kPort));
    terminal->Write(Frame(0, 0x04, 7, 0) + Frame(0, 0x07, 0, 2) + Frame(0, 0x08, 0, 9).left(4));
    QTRY_COMPARE(inbox_.Lines(), QStringList({"1000 3023 7", "1000 3050 2"}));

    terminal.reset();
    QTRY_VERIFY(guard_.LogLines().join('\n').contains("Lost"));
    QTRY_COMPARE(inbox_.Lines().constLast(), QString("1000 3030 0")); // the move ends with the port
    CPseudoTerminal next;
    QVERIFY(QFile::remove(link) && QFile::link(next.Path(), link));
    const auto is_heard = [&] {
        next.Write(Frame(0, 0x10, 0, 5));
        return inbox_.Lines().contains("1000 3022 5");
    };
    QTRY_VERIFY_WITH_TIMEOUT(is_heard(), 10000);
    QVERIFY(!inbox_.Lines().join(' ').contains("3021"));
}

void tst_keyboard::portsThatCannotBeOpenedAreRefused()
{
    QVERIFY(!KeyBoard_OpenSerialKeyBoard(kSerialId, &kPort)); // nothing runs
    guard_.AnnounceLogLines();
    KeyBoard_SetSerialPorts({"/dev/null/none"});
    QVERIFY(KeyBoard_Init(&CInbox::Take, &inbox_));
    KeyBoardSerialParam second = kPort;
    second.port_name = "COM2";
    QVERIFY(!KeyBoard_OpenSerialKeyBoard(kSerialId, nullptr));
    QVERIFY(!KeyBoard_OpenSerialKeyBoard(kSerialId, &kPort));
    QVERIFY(!KeyBoard_OpenSerialKeyBoard(kSerialId, &second));
    QVERIFY(!KeyBoard_OpenSerialKeyBoard(kSerialId + 1, &kPort));
    QVERIFY(!KeyBoard_CloseSerialKeyBoard(kSerialId));
}

void tst_keyboard::joystickIsFoundMovedPressedAndLost()
{
    QVERIFY(KeyBoard_Init(&CInbox::Take, &inbox_));
    const int index = SDL_JoystickAttachVirtual(SDL_JOYSTICK_TYPE_GAMECONTROLLER, 3, 4, 0);
    QVERIFY2(index >= 0, SDL_GetError());
    QTRY_COMPARE(inbox_.Lines(), QStringList{"1002 1301 0"});
    SDL_Joystick *const stick = SDL_JoystickOpen(index);
    QVERIFY(stick);

    inbox_.Clear();
    SDL_JoystickSetVirtualAxis(stick, 1, -32768);
    QTRY_COMPARE(inbox_.Lines(), QStringList{"1002 1305 63"});
    SDL_JoystickSetVirtualAxis(stick, 1, 0);
    SDL_JoystickSetVirtualAxis(stick, 2, 32767);
    QTRY_COMPARE(inbox_.Lines().constLast(), QString("1002 1314 0"));
    QCOMPARE(inbox_.Lines().at(1), QString("1002 1313 0")); // the move ended first

    inbox_.Clear();
    QStringList edges;
    for (int i = 0; i < 40; ++i) {
        SDL_JoystickSetVirtualButton(stick, i / 2 % 4, i % 2 ? SDL_RELEASED : SDL_PRESSED);
        edges << QString("1002 %1 %2").arg(i % 2 ? 1303 : 1304).arg(i / 2 % 4);
        QTRY_COMPARE(inbox_.Lines().size(), edges.size());
    }
    QCOMPARE(inbox_.Lines(), edges);

    inbox_.Clear();
    SDL_JoystickClose(stick);
    QCOMPARE(SDL_JoystickDetachVirtual(index), 0);
    QTRY_COMPARE(inbox_.Lines(), QStringList({"1002 1313 0", "1002 1302 0"}));
}

void tst_keyboard::libraryRunsOnceAndEndsCleanly()
{
    QVERIFY(!KeyBoard_Init(nullptr, nullptr));
    for (int round = 0; round < 3; ++round) {
        QVERIFY(KeyBoard_Init(&CInbox::Take, &inbox_));
        QVERIFY(!KeyBoard_Init(&CInbox::Take, &inbox_));
        KeyBoard_Uninit();
        KeyBoard_Uninit();
    }
}

QTEST_GUILESS_MAIN(tst_keyboard)
#include "tst_keyboard.moc"
