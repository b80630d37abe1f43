// SPDX-License-Identifier: MIT
// The default driver on real parts: SDL's virtual joysticks and a pseudo-terminal.
#include "support/PseudoTerminal.h"
#include "support/Test.h"
#include "support/VirtualStick.h"

#include <KeyBoard/JoystickMotion.h>
#include <KeyBoard/KeyBoard.h>
#include <KeyBoard/PelcoD.h>

using namespace KeyBoard;

namespace {

// Waits for these codes, and forgets them.
#define EXPECT_CODES(...)                                                                          \
    do {                                                                                           \
        QTRY_COMPARE(codes.Lines(), __VA_ARGS__);                                                  \
        codes.Take();                                                                              \
    } while (false)

constexpr quint32 kSerialId = 1000;
constexpr KeyBoardSerialParam kPort{"COM1", 9600, 8, 1, 0, 0};

// Collects what the driver's threads report.
class CInbox
{
public:
    void Add(const QString &line)
    {
        const QMutexLocker lock(&mutex_);
        lines_ << line;
    }
    QStringList Take()
    {
        const QMutexLocker lock(&mutex_);
        return std::exchange(lines_, {});
    }
    QStringList Lines() const
    {
        const QMutexLocker lock(&mutex_);
        return lines_;
    }

private:
    mutable QMutex mutex_;
    QStringList lines_;
};

CInbox codes; // "code value"
CInbox news;  // "kind reason"

int TakeCode(quint32, quint32 code, quint32 value, quint32, const char *, const char *, void *)
{
    codes.Add(QString("%1 %2").arg(code).arg(value));
    return 0;
}

QByteArray Frame(quint8 command1, quint8 command2, quint8 data1, quint8 data2)
{
    return EncodePelco({1, command1, command2, data1, data2});
}

// What a stick sends when it goes through these deflections, a poll each.
QStringList Codes(const QVector<std::array<int, 3>> &polls)
{
    CStickMotion motion;
    QStringList sent;
    KeyBoard::JoystickMotion last;
    for (const auto &[right, down, zoom] : polls) {
        const auto now = motion.Take(right, down, zoom);
        if (!(now == last))
            sent << QString("%1 %2").arg(now.code).arg(now.speed);
        last = now;
    }
    return sent;
}

// operation, speed, index; operation 0: the client sends no such frame
// bytes, "": the protocol has no such command; the code that a keyboard's frame of these bytes has
const Rows<int, int, int, const char *, const char *> kCommandRows = {
    {"up", 100, 63, 0, "ff010008003f48", "3021 63"},
    {"down, too fast", 101, 200, 0, "ff010010003f50", "3022 63"},
    {"left", 102, 32, 0, "ff010004200025", "3023 32"},
    {"right", 103, 32, 0, "ff010002200023", "3024 32"},
    {"up and left", 106, 9, 0, "ff01000c09091f", "3023 9"},
    {"up and right", 107, 9, 0, "ff01000a09091d", "3024 9"},
    {"down and left", 108, 9, 0, "ff010014090927", "3023 9"},
    {"down and right, backwards", 109, -1, 0, "ff010012000013", "3024 0"},
    {"zoom in", 104, 9, 0, "ff010020000021", "3011 0"},
    {"zoom out", 105, 0, 0, "ff010040000041", "3012 0"},
    {"focus near", 112, 0, 0, "ff010100000002", "3013 0"},
    {"focus far", 113, 0, 0, "ff010080000081", "3014 0"},
    {"iris open", 114, 0, 0, "ff010200000003", "3015 0"},
    {"iris close", 115, 0, 0, "ff010400000005", "3016 0"},
    {"preset 255", 200, 0, 255, "ff01000700ff07", "3050 255"},
    {"no preset 0", 200, 0, 0, "", ""},
    {"no preset 256", 200, 0, 256, "", ""},
    {"a selection of windows", 124, 0, 1, "", ""},
    {"right, too fast for the protocol", 0, 0, 0, "ff010002ff0002", "3024 255"},
    {"up and right, panning faster", 0, 0, 0, "ff01000a140a29", "3024 20"},
    {"up and right, tilting faster", 0, 0, 0, "ff01000a0a1429", "3021 20"},
    {"set preset 7", 0, 0, 0, "ff01000300070b", "2001 7"},
    {"clear preset 7", 0, 0, 0, "ff01000500070d", "2002 7"},
    {"auxiliary 1", 0, 0, 0, "ff01000900010b", "3052 0"},
    {"auxiliary 2", 0, 0, 0, "ff01000900020c", "3002 0"},
    {"auxiliary 3", 0, 0, 0, "ff01000900030d", "3003 0"},
    {"auxiliary 4", 0, 0, 0, "ff01000900040e", "3029 0"},
    {"auxiliary 5 is unknown", 0, 0, 0, "ff01000900050f", "0 0"},
    {"an extended command that is unknown", 0, 0, 0, "ff01001f000121", "0 0"},
    {"camera on, which no key means", 0, 0, 0, "ff018800000089", "0 0"},
    {"stop", 0, 0, 0, "ff010000000001", "3030 0"},
};

const Rows<int, int, int, const char *> kMotionRows = {
    {"just in the dead zone", 8192, 0, 8192, ""},
    {"just beyond it", 8193, 0, 0, "1308 1"},
    {"on the diagonal, the zone is round", 5800, 5800, 0, "1309 1"},
    {"up", 0, -32767, 0, "1305 63"},
    {"down", 0, 32767, 0, "1306 63"},
    {"left", -32767, 100, 0, "1307 63"},
    {"right, halfway", 20480, 0, 0, "1308 22"},
    {"down right", 32767, 32767, 0, "1309 63"},
    {"up left", -20000, -20000, 0, "1310 47"},
    {"down left", -20000, 20000, 0, "1311 47"},
    {"up right", 20000, -20000, 0, "1312 47"},
    {"zoom in", 0, 0, 32767, "1314 0"},
    {"zoom out", 0, 0, -32767, "1315 0"},
    {"a move goes before zoom", 0, -32767, 32767, "1305 63"},
};

// right, down, zoom, code
const Rows<int, int, int, const char *> kNoiseRows = {
    {"edge of rest", 8192, 0, 0, "1308 1"},
    {"between two directions", 20000, 8284, 0, ""},
    {"between two speeds", 30000, 0, 0, ""},
    {"edge of zoom", 0, 0, 8192, "1314 0"},
};

// type, axes, hats, third axis at rest, moved axis (-1: the hat) and its value, code
const Rows<SDL_JoystickType, int, int, int, int, int, const char *> kStickRows = {
    {"three-axis camera stick", SDL_JOYSTICK_TYPE_UNKNOWN, 3, 0, 0, 1, -32768, "1305 63"},
    {"its twist", SDL_JOYSTICK_TYPE_UNKNOWN, 3, 0, 0, 2, 32767, "1314 0"},
    {"pad with triggers", SDL_JOYSTICK_TYPE_GAMECONTROLLER, 6, 0, 0, 0, 32767, "1308 63"},
    {"its trigger", SDL_JOYSTICK_TYPE_GAMECONTROLLER, 6, 0, 0, 5, 32767, "1314 0"},
    {"unknown pad", SDL_JOYSTICK_TYPE_UNKNOWN, 6, 0, -32768, 0, 32767, "1308 63"},
    {"throttle", SDL_JOYSTICK_TYPE_THROTTLE, 3, 0, 12345, 1, 32767, "1306 63"},
    {"hat only", SDL_JOYSTICK_TYPE_UNKNOWN, 0, 1, 0, -1, SDL_HAT_LEFTUP, "1310 32"},
};

const Rows<> kEndRows = {
    {"never uninit"}, {"application gone"},     {"no application"},         {"parent"},
    {"exit"},         {"exit from a callback"}, {"before the application"},
};

} // namespace

class tst_keyboard : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override
    {
        codes.Take();
        news.Take();
        KeyBoard_SetPortListener([](const KeyBoardPortNews &what) {
            news.Add(QString("%1 %2").arg(what.kind).arg(what.reason).trimmed());
        });
    }
    void TearDown() override
    {
        KeyBoard_Uninit();
        KeyBoard_SetSerialPorts({});
        KeyBoard_SetPortListener({});
        SDL_Quit();
    }

    bool Start() { return KeyBoard_Init(&TakeCode, nullptr); }

private Q_SLOTS:
    // The bytes are those of the protocol's published examples, for camera 1.
    void operationsBecomeFramesAndFramesCodes_data() { AddRows(kCommandRows); }
    void operationsBecomeFramesAndFramesCodes()
    {
        const auto &[name, operation, speed, index, bytes, expected] = FetchRow(kCommandRows);
        const auto frame = KeyBoard::PelcoCommand(1, operation, speed, index);
        if (operation)
            QCOMPARE(frame ? EncodePelco(*frame).toHex() : QByteArray(), QByteArray(bytes));
        KeyBoard::DeviceCode code;
        KeyBoard::CPelcoReader().Read(QByteArray::fromHex(bytes), [&](const PelcoFrame &read) {
            code = KeyBoard::TranslatePelco(read);
        });
        QCOMPARE(*bytes ? QString("%1 %2").arg(code.code).arg(code.value) : QString(),
                 QString(expected));
    }

    void readerFindsEveryWholeFrameInNoise()
    {
        std::mt19937 random(1);
        KeyBoard::CPelcoReader reader;
        QList<int> sent;
        QList<int> seen;
        QByteArray stream;
        for (int i = 0; i < 3000; ++i) {
            // Noise holds no sync byte. Half frames do, of three bytes at least: less may make a
            // sum right with the bytes that follow.
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
            reader.Read(stream.left(length), [&seen](const PelcoFrame &frame) {
                seen << frame.data1 * 64 + frame.data2;
            });
            stream.remove(0, length);
        }
        QCOMPARE(seen, sent);
    }

    void stickMovesInEightDirectionsBeyondTheDeadZone_data() { AddRows(kMotionRows); }
    void stickMovesInEightDirectionsBeyondTheDeadZone()
    {
        const auto &[name, right, down, zoom, code] = FetchRow(kMotionRows);
        const std::array<int, 3> held{right, down, zoom};
        QCOMPARE(Codes({held, held}).join(';'), QString(code));
    }

    // Half a percent of noise, as a worn stick has it.
    void noiseAtABorderChangesNothing_data() { AddRows(kNoiseRows); }
    void noiseAtABorderChangesNothing()
    {
        const auto &[name, right, down, zoom, code] = FetchRow(kNoiseRows);
        std::mt19937 random(1);
        const auto noisy = [&](int value) { return value ? value + int(random() % 329) - 164 : 0; };
        QVector<std::array<int, 3>> polls;
        for (int poll = 0; poll < 1000; ++poll)
            polls << std::array<int, 3>{noisy(right), noisy(down), noisy(zoom)};
        polls << std::array<int, 3>{};
        const QStringList sent = Codes(polls);
        QVERIFY2(sent.size() == 2, qPrintable(sent.join(';')));
        QCOMPARE(sent.constLast(), QString("0 0"));
    }

    void diagonalThatIsLetGoEndsAtOnce()
    {
        QCOMPARE(Codes({{-32767, -32767, 0}, {-32767, -32767, 0}, {0, -32767, 0}, {0, 0, 0}}),
                 QStringList({"1310 63", "0 0"}));
    }

    void axisCountsOnceItWasSeenAtRestAndIsNoLever()
    {
        using Kind = CStickAxis::Kind;
        const auto deflections = [](Kind kind, const QVector<std::pair<int, qint64>> &values) {
            CStickAxis axis(kind, values.constFirst().first);
            QList<int> all;
            for (const auto &[value, time_ms] : values)
                all << axis.Deflection(value, time_ms);
            return all;
        };
        using List = QList<int>;
        QCOMPARE(deflections(Kind::kDirection, {{30000, 0}, {0, 0}, {-32768, 0}, {-32768, 10000}}),
                 List({0, 0, -32767, 0})); // held while it was plugged in, or a lever
        QCOMPARE(
            deflections(Kind::kDirection, {{2000, 0}, {32767, 0}, {-32768, 0}, {-32768, 10000}}),
            List({0, 32767, -32767, -32767})); // crooked, then held for long
        QCOMPARE(deflections(Kind::kTrigger, {{16384, 0}, {0, 0}, {32767, 0}}),
                 List({0, 0, 32767})); // SDL's value before the first report
        QCOMPARE(deflections(Kind::kTwist, {{20000, 0}, {0, 0}, {-32768, 0}}), List({0, 0, 0}));
        // A lever that was centred stays where it was left, but for noise.
        QCOMPARE(deflections(Kind::kTwist, {{0, 0}, {20000, 1000}, {20200, 10999}, {20000, 11000}}),
                 List({0, 20000, 20200, 0}));
    }

    void serialKeyboardIsHeardInWholeAndHalfFrames()
    {
        CPseudoTerminal terminal;
        QVERIFY(terminal.IsOpen());
        KeyBoard_SetSerialPorts({terminal.Path()});
        QVERIFY(Start() && KeyBoard_OpenSerialKeyBoard(kSerialId, &kPort));

        terminal.Write(Frame(0, 0x08, 0, 9) + "noise" + Frame(0, 0, 0, 0).left(3));
        QTRY_COMPARE(codes.Lines(), QStringList{"3021 9"});
        terminal.Write(Frame(0, 0, 0, 0).mid(3));
        EXPECT_CODES(QStringList({"3021 9", "3030 0"}));

        terminal.Write(Frame(0, 0x08, 0, 9) + Frame(0, 0x08, 0, 5) + Frame(0, 0x02, 7, 0));
        EXPECT_CODES(QStringList({"3021 9", "3021 5", "3030 0", "3024 7"}));

        QVERIFY(KeyBoard_CloseSerialKeyBoard(kSerialId));
        QVERIFY(!KeyBoard_CloseSerialKeyBoard(kSerialId));
        QCOMPARE(codes.Take(), QStringList{"3030 0"});
        QCOMPARE(news.Take(), QStringList({"0", "3"}));
    }

    void portThatDisappearsIsFoundAgain()
    {
        guard_.AnnounceLogLines();
        auto terminal = std::make_unique<CPseudoTerminal>();
        const QString link = folder_.Path("tty");
        QVERIFY(QFile::link(terminal->Path(), link));
        KeyBoard_SetSerialPorts({link});
        QVERIFY(Start() && KeyBoard_OpenSerialKeyBoard(kSerialId, &kPort));
        terminal->Write(Frame(0, 0x04, 7, 0) + Frame(0, 0x07, 0, 2) + Frame(0, 0x08, 0, 9).left(4));
        EXPECT_CODES(QStringList({"3023 7", "3050 2"}));

        terminal.reset();
        QTRY_COMPARE(news.Lines().size(), 2);
        QVERIFY2(!guard_.LogLines().join('\n').contains("ioctl"), qPrintable(news.Lines().at(1)));
        QCOMPARE(codes.Take(), QStringList{"3030 0"}); // the move ends with the port
        CPseudoTerminal next;
        QVERIFY(QFile::remove(link) && QFile::link(next.Path(), link));
        QTRY_COMPARE_WITH_TIMEOUT(news.Lines().constLast(), QString("0"), 10000);
        next.Write(Frame(0, 0x10, 0, 5));
        EXPECT_CODES(QStringList({"3022 5"}));
    }

    void portsThatCannotBeOpenedAreRefused()
    {
        QVERIFY(!KeyBoard_OpenSerialKeyBoard(kSerialId, &kPort)); // nothing runs
        QVERIFY(!KeyBoard_Init(nullptr, nullptr));
        guard_.AnnounceLogLines();
        KeyBoard_SetSerialPorts({"/dev/null/none"});
        QVERIFY(Start() && !Start());
        KeyBoardSerialParam second = kPort;
        second.port_name = "COM2";
        QVERIFY(!KeyBoard_OpenSerialKeyBoard(kSerialId, nullptr));
        QVERIFY(!KeyBoard_OpenSerialKeyBoard(kSerialId, &kPort));
        QVERIFY(!KeyBoard_OpenSerialKeyBoard(kSerialId, &second));
        QVERIFY(!KeyBoard_OpenSerialKeyBoard(kSerialId + 1, &kPort));
        QVERIFY(!KeyBoard_CloseSerialKeyBoard(kSerialId));
        KeyBoard_SetSerialPorts({"/dev/null"});
        QVERIFY(!KeyBoard_OpenSerialKeyBoard(kSerialId, &kPort));
        QCOMPARE(news.Lines().size(), 3);
        QCOMPARE(news.Lines().constLast(), QString("1 It is no serial port"));
    }

    // Each rests, moves, and rests again: one command, one stop, and no command while it rests.
    void everyKindOfStickSteersStopsAndRests_data() { AddRows(kStickRows); }
    void everyKindOfStickSteersStopsAndRests()
    {
        const auto &[name, type, axes, hats, third_axis, moved, value, code] = FetchRow(kStickRows);
        QCOMPARE(SDL_InitSubSystem(SDL_INIT_JOYSTICK), 0);
        const CVirtualStick stick(type, axes, 0, hats);
        QVERIFY2(stick.IsOpen(), SDL_GetError());
        const int trigger = axes == 6 ? -32768 : 0; // the fifth and sixth axis rest there
        const std::vector<int> places{0, 0, third_axis, 0, trigger, trigger};
        const auto rest = [&stick, &places, count = axes] {
            for (int axis = 0; axis < count; ++axis)
                stick.SetAxis(axis, places[size_t(axis)]);
            stick.SetHat(SDL_HAT_CENTERED);
        };
        rest();
        QVERIFY(Start());
        EXPECT_CODES(QStringList({"1301 0"}));
        QTest::qWait(100); // polls at rest

        moved < 0 ? stick.SetHat(Uint8(value)) : stick.SetAxis(moved, value);
        QTRY_VERIFY(!codes.Lines().isEmpty());
        rest();
        QTRY_COMPARE(codes.Lines().size(), 2);
        QTest::qWait(100);
        QCOMPARE(codes.Take(), QStringList({code, "1313 0"}));
    }

    void clientThatUsesSdlTooSeesEveryEdge()
    {
        QCOMPARE(SDL_Init(SDL_INIT_JOYSTICK | SDL_INIT_EVENTS), 0);
        auto stick = std::make_unique<CVirtualStick>(SDL_JOYSTICK_TYPE_UNKNOWN, 2, 4, 0);
        QVERIFY(Start());
        EXPECT_CODES(QStringList({"1301 0"}));
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
        QStringList edges;
        int seen = 0;
        for (int i = 0; i < 40; ++i) {
            stick->SetButton(i / 2 % 4, i % 2 == 0);
            edges << QString("%1 %2").arg(i % 2 ? 1303 : 1304).arg(i / 2 % 4);
            SDL_PumpEvents(); // the client is faster than the library's polls
        }
        EXPECT_CODES(edges);
        SDL_Event event;
        while (SDL_PollEvent(&event))
            seen += event.type == SDL_JOYBUTTONDOWN || event.type == SDL_JOYBUTTONUP;
        QCOMPARE(seen, edges.size());

        stick->SetAxis(0, 32767);
        EXPECT_CODES(QStringList({"1308 63"}));
        SDL_Quit(); // ends SDL for the library too, which starts it again
        EXPECT_CODES(QStringList({"1313 0", "1302 0"}));
        stick.reset();
        QTRY_VERIFY((SDL_WasInit(SDL_INIT_JOYSTICK) & SDL_INIT_JOYSTICK) != 0);
        const CVirtualStick next(SDL_JOYSTICK_TYPE_UNKNOWN, 2, 4, 0);
        EXPECT_CODES(QStringList({"1301 0"}));
    }

    void firstOfTwoSticksSteersUntilItRests()
    {
        QVERIFY(Start());
        auto first = std::make_unique<CVirtualStick>(SDL_JOYSTICK_TYPE_UNKNOWN, 3, 2, 0);
        const CVirtualStick second(SDL_JOYSTICK_TYPE_UNKNOWN, 3, 2, 0);
        EXPECT_CODES(QStringList({"1301 0", "1301 0"}));

        first->SetAxis(0, 32767);
        EXPECT_CODES(QStringList({"1308 63"}));
        second.SetAxis(1, 32767);
        first->SetButton(1, true);
        EXPECT_CODES(QStringList({"1304 1"}));
        first.reset(); // its buttons and motion end; the other stick is still there
        EXPECT_CODES(QStringList({"1303 1", "1313 0", "1306 63"}));
        KeyBoard_Uninit();
        QCOMPARE(codes.Take(), QStringList{"1313 0"});
    }

    // Each order of making, deleting and leaving; see DeviceEnds.cpp.
    void processEnds_data() { AddRows(kEndRows); }
    void processEnds()
    {
        QProcess program;
        program.setProcessChannelMode(QProcess::MergedChannels);
        program.start(DEVICE_ENDS, {QTest::currentDataTag()});
        const bool ends = program.waitForFinished(30000);
        QVERIFY2(ends && program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0,
                 program.readAll());
    }
};

QTEST_GUILESS_MAIN(tst_keyboard)
#include "tst_keyboard.moc"
