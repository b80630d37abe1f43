// SPDX-License-Identifier: MIT
#include "support/Test.h"

#include <Nim/Base/Encrypt.h>
#include <Nim/Base/Error.h>
#include <Nim/Base/FileSystem.h>
#include <Nim/Base/Guid.h>
#include <Nim/Base/Log.h>
#include <Nim/Base/MonitorDriveUtil.h>
#include <Nim/Base/OS.h>
#include <Nim/Base/Zip.h>
#include <Vantor/CCSVParser>
#include <common/LogMacro.h>

namespace Base = Nim::Base;

namespace {

// Written by another program, compressed: "a/long.xml" is stored, with its sizes in 64 bits, and
// holds "head", 3,000 dashes and "tail"; "short" is deflated and holds "all".
const char kArchive[] =
    "AAAMpXjaC/BmZtFlgADFmA0PRLT/QwEXgwhDon5Ofl66XkVuDiODAMMBbog6GJ2RmpiiOwpGwSgYBaNgFIyC"
    "UTAKRsEoGPSgJDEzJwDY9hcBtuM5wG3/u4US1qxAFjMQg+jijPyiEu8zJxkZArwZmXSZUXsJoD4ACHMxIEAD"
    "I4hE9BlA+kSYcduA0PeHG2pfgDcrG0iICQizgbQKD4gHAIwUO2Q=";

// damaged_at, cut_at, is_sound
const Rows<int, int, bool> kArchiveRows = {
    {"a sound one", -1, -1, true},
    {"a byte of a part is wrong", 1000, -1, false},
    {"the directory is missing", -1, 1500, false},
    {"nothing at all", -1, 0, false},
};

// text, is_text, bytes
const Rows<const char *, bool, QByteArray> kBase64Rows = {
    {"padded", "AAECAw==", true, QByteArray("\0\1\2\3", 4)},
    {"empty", "", false, {}},
    {"a character outside the alphabet", "AA*CAw==", false, {}},
    {"wrong padding", "A===", false, {}},
    {"no padding", "QUI", true, "AB"},
    {"one character too many", "QUJDR", false, {}},
    {"half of the padding", "QQ=", false, {}},
};

} // namespace

class TestBase : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void archivesAreReadToTheirEnd_data() { AddRows(kArchiveRows); }

    void archivesAreReadToTheirEnd()
    {
        const auto &[row_name, damaged_at, cut_at, is_sound] = FetchRow(kArchiveRows);
        const QString path = folder_.Path("a.zip");
        QByteArray archive = qUncompress(QByteArray::fromBase64(kArchive));
        QCOMPARE(archive.size(), 3237);
        if (damaged_at >= 0)
            archive[damaged_at] = 'x';
        folder_.Put("a.zip", cut_at >= 0 ? archive.left(cut_at) : archive);

        QMap<std::string, std::string> parts;
        const auto keep = [&parts](const std::string &name, const char *bytes, std::size_t size) {
            parts[name].append(bytes, size);
            return true;
        };
        QCOMPARE(Base::Zip::ReadParts(path.toStdString(), keep), is_sound);

        if (!is_sound)
            return;
        QCOMPARE(parts.size(), 2);
        QCOMPARE(parts["a/long.xml"], "head" + std::string(3000, '-') + "tail");
        QCOMPARE(parts["short"], std::string("all"));
    }

    void aLogLineIsFramedAndItsTextIsNeitherFormatNorSecondLine()
    {
        const std::string name = "eve %s%n\r\n[forged]\x1b[31m" + std::string(200000, 'x');

        VANTOR_LOG("Vantor::CName::DoThis", 3, VANTOR_LOG_USER_OPERATE, "%d, %s", 3, name.c_str());
        const int at = __LINE__ - 1;

        QCOMPARE(guard_.LogLines().size(), 1);
        const QString line = guard_.LogLines().constFirst();
        QVERIFY(line.startsWith(
            "3 UserOperate [Vantor::CName::DoThis]3, eve %s%n\\r\\n[forged]\\x1b[31mxxx"));
        QVERIFY(line.endsWith(QString("[tst_base.cpp(%1)]").arg(at)) && line.size() > 200000);
    }

    void sinksMayThrowAndTheDefaultIsQtsCategories()
    {
        guard_.AnnounceWarning("grew cold");
        guard_.AnnounceWarning("burnt down");
        Base::Log::SetSink([](int, const std::string &, const std::string &) {
            throw std::runtime_error("full");
        });
        Base::Log::Write(5, "ClientWarningAndMore", "still here");

        Base::Log::SetSink(nullptr);
        Base::Log::Write(4, "ClientWarningAndMore", "grew cold");
        Base::Log::Write(5, "ClientWarningAndMore", "burnt down");

        QVERIFY(guard_.LogLines().isEmpty());
    }

    void sinksMayBeChangedWhileThreadsLog()
    {
        std::array<std::atomic<int>, 2> counts{};
        constexpr int kThreads = 8;
        constexpr int kLines = 500;
        std::vector<std::thread> threads;
        for (int i = 0; i < kThreads; ++i) {
            threads.emplace_back([] {
                for (int line = 0; line < kLines; ++line)
                    Base::Log::Write(3, "UserOperate", "line %d", line);
            });
        }
        for (int change = 0; change < 200; ++change) {
            std::atomic<int> &count = counts[size_t(change % 2)];
            Base::Log::SetSink([&count](auto &&...) { ++count; });
        }
        for (std::thread &thread : threads)
            thread.join();

        QCOMPARE(counts[0] + counts[1] + guard_.LogLines().size(), kThreads * kLines);
    }

    void theLastErrorBelongsToItsThread()
    {
        Base::Error::SetLastError({2, 20, 2000});
        Base::Error::ErrorCode elsewhere{9, 9, 9};

        std::thread([&elsewhere] { elsewhere = Base::Error::GetLastError(); }).join();

        QVERIFY(elsewhere == Base::Error::ErrorCode());
        QVERIFY(Base::Error::GetLastError() == (Base::Error::ErrorCode{2, 20, 2000}));
    }

    void base64IsDecodedOrRefused_data() { AddRows(kBase64Rows); }

    void base64IsDecodedOrRefused()
    {
        const auto &[name, text, is_text, bytes] = FetchRow(kBase64Rows);
        std::string decoded = "left over";

        QCOMPARE(Base::Encrypt::Base64Decode(decoded, text), is_text);

        QCOMPARE(QByteArray::fromStdString(decoded), bytes);
    }

    void foldersAreMadeAndFilesRenamedWhole()
    {
        namespace Files = Base::FileSystem;
        const auto name = [this](const char *file) { return folder_.Path(file).toStdString(); };
        QVERIFY(Files::MakeDir(name("a/b/c")));
        QVERIFY(Files::MakeDir(name("a/b/c"))); // already there
        QCOMPARE(Files::DeleteFileW(name("a/b/c").c_str()), -1);
        folder_.Put("target", "old");
        QVERIFY(!Files::MakeDir(name("target/below")));
        folder_.Put("source", "new");
        QCOMPARE(Files::CopyFileW(name("source").c_str(), name("no/folder").c_str(), 0), -ENOENT);
        QCOMPARE(Files::RenameFile(name("source").c_str(), name("target").c_str()), 0);
        QCOMPARE(Files::RenameFile(name("source").c_str(), name("target").c_str()), -1);
        QCOMPARE(folder_.Bytes("target"), QByteArray("new"));
        QCOMPARE(folder_.Files(), QStringList({"a", "target"}));
        QVERIFY(Base::GuidUtil::CreateGuid() != Base::GuidUtil::CreateGuid());
    }

    void replacedServicesMayThrowAndTheDefaultsComeBack()
    {
        namespace Monitors = Base::MonitorDriveUtil;
        Base::OS::SetCapsLockSource([] { return true; });
        QVERIFY(Base::OS::IsCapsLockOn());
        Base::OS::SetCapsLockSource([]() -> bool { throw std::runtime_error("no keyboard"); });
        QVERIFY(!Base::OS::IsCapsLockOn());
        Base::OS::SetCapsLockSource(nullptr);
        if (!qEnvironmentVariableIsSet("DISPLAY"))
            QVERIFY(!Base::OS::IsCapsLockOn());

        Monitors::SetBackend([](bool, Monitors::DeviceChangeCallBack, void *) { return true; });
        QVERIFY(Monitors::SetDeviceChangeCallBack(true, nullptr, nullptr));
        Monitors::SetBackend([](bool, Monitors::DeviceChangeCallBack, void *) -> bool {
            throw std::runtime_error("no wall");
        });
        QVERIFY(!Monitors::SetDeviceChangeCallBack(true, nullptr, nullptr));
        Monitors::SetBackend(nullptr);
        // The default follows screens; a program without windows has no screen, and the log says
        // so.
        guard_.AnnounceLogLines();
        QVERIFY(!Monitors::SetDeviceChangeCallBack(true, nullptr, nullptr));
        QVERIFY(guard_.LogLines().constLast().contains("there is no QGuiApplication yet"));
    }

    // A process reads the system's locale once, so each locale has its own run.
    void theDecimalPointOfTheLocaleDecidesTheListSeparator()
    {
        const bool is_german = qgetenv("LC_ALL").startsWith("de_DE");
        QCOMPARE(Vantor::GetLocalListSperator(), QString(is_german ? ";" : ","));
    }
};

QTEST_GUILESS_MAIN(TestBase)
#include "tst_base.moc"
