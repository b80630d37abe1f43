// SPDX-License-Identifier: MIT
#include "support/Files.h"
#include "support/TestGuard.h"

#include <Nim/Base/Encrypt.h>
#include <Nim/Base/Error.h>
#include <Nim/Base/FileSystem.h>
#include <Nim/Base/Guid.h>
#include <Nim/Base/Log.h>
#include <Nim/Base/MonitorDriveUtil.h>
#include <Nim/Base/OS.h>
#include <Nim/Base/Zip.h>
#include <common/LogMacro.h>

#include <sys/stat.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <atomic>
#include <stdexcept>
#include <thread>
#include <vector>

namespace Base = Nim::Base;

class TestBase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard_.Begin();
        folder_ = std::make_unique<QTemporaryDir>();
    }

    void cleanup()
    {
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void aLogLineIsFramedByFunctionAndFile()
    {
        VANTOR_LOG("Vantor::CName::DoThis", 3, VANTOR_LOG_USER_OPERATE, "took %d of %s", 3, "five");
        const int line = __LINE__ - 1;

        QCOMPARE(
            guard_.LogLines(),
            QStringList(QStringLiteral(
                            "3 UserOperate [Vantor::CName::DoThis]took 3 of five[tst_base.cpp(%1)]")
                            .arg(line)));
    }

    void archivesAreReadToTheirEnd_data()
    {
        QTest::addColumn<int>("damaged_at");
        QTest::addColumn<int>("cut_at");
        QTest::addColumn<bool>("is_sound");
        QTest::newRow("a sound one") << -1 << -1 << true;
        QTest::newRow("a byte of a part is wrong") << 1000 << -1 << false;
        QTest::newRow("the directory is missing") << -1 << 1500 << false;
        QTest::newRow("nothing at all") << -1 << 0 << false;
    }

    void archivesAreReadToTheirEnd()
    {
        QFETCH(int, damaged_at);
        QFETCH(int, cut_at);
        QFETCH(bool, is_sound);
        const QString path = folder_->filePath("a.zip");
        const QString script = R"(
import sys, zipfile
with zipfile.ZipFile(sys.argv[1], "w") as archive: # the sizes of the first are in 64 bits
    with archive.open("a/long.xml", "w", force_zip64=True) as part:
        part.write(b"head" + 3000 * b"-" + b"tail")
    archive.writestr("short", b"all", compress_type=zipfile.ZIP_DEFLATED)
)";
        QCOMPARE(QProcess::execute("/usr/bin/python3", {"-c", script, path}), 0);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(damaged_at < 0 || (file.seek(damaged_at) && file.putChar('x')));
        QVERIFY(cut_at < 0 || file.resize(cut_at));
        file.close();

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

    void textFromOutsideIsNeitherFormatNorSecondLine()
    {
        const std::string name = "eve %s%n\r\n[forged]\x1b[31m" + std::string(200000, 'x');

        Base::Log::Write(3, "Clientframework", "user %s", name.c_str());

        QCOMPARE(guard_.LogLines().size(), 1);
        const QString line = guard_.LogLines().constFirst();
        QVERIFY(line.startsWith("3 Clientframework user eve %s%n\\r\\n[forged]\\x1b[31mxxx"));
        QVERIFY(line.size() > 200000);
    }

    void theDefaultSinkHandsLinesToQtsCategories()
    {
        guard_.AnnounceWarning("grew cold");
        guard_.AnnounceWarning("burnt down");
        Base::Log::SetSink(nullptr);

        Base::Log::Write(4, "ClientWarningAndMore", "grew cold");
        Base::Log::Write(5, "ClientWarningAndMore", "burnt down");
    }

    void aSinkThatThrowsHarmsNobody()
    {
        Base::Log::SetSink([](int, const std::string &, const std::string &) {
            throw std::runtime_error("full");
        });

        Base::Log::Write(5, "ClientWarningAndMore", "still here");

        QVERIFY(guard_.LogLines().isEmpty());
    }

    void sinksMayBeChangedWhileThreadsLog()
    {
        std::atomic<int> first{0};
        std::atomic<int> second{0};
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
            std::atomic<int> &count = change % 2 == 0 ? first : second;
            Base::Log::SetSink(
                [&count](int, const std::string &, const std::string &) { ++count; });
        }
        for (std::thread &thread : threads)
            thread.join();

        QCOMPARE(first + second + guard_.LogLines().size(), kThreads * kLines);
    }

    void theLastErrorBelongsToItsThread()
    {
        Base::Error::SetLastError({2, 20, 2000});
        Base::Error::ErrorCode elsewhere{9, 9, 9};

        std::thread([&elsewhere] { elsewhere = Base::Error::GetLastError(); }).join();

        QVERIFY(elsewhere == Base::Error::ErrorCode());
        QVERIFY(Base::Error::GetLastError() == (Base::Error::ErrorCode{2, 20, 2000}));
    }

    void base64IsDecodedOrRefused_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<bool>("is_text");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("padded") << QByteArray("AAECAw==") << true << QByteArray("\0\1\2\3", 4);
        QTest::newRow("empty") << QByteArray() << false << QByteArray();
        QTest::newRow("a character outside the alphabet")
            << QByteArray("AA*CAw==") << false << QByteArray();
        QTest::newRow("wrong padding") << QByteArray("A===") << false << QByteArray();
    }

    void base64IsDecodedOrRefused()
    {
        QFETCH(QByteArray, text);
        QFETCH(bool, is_text);
        QFETCH(QByteArray, bytes);
        std::string decoded = "left over";

        QCOMPARE(Base::Encrypt::Base64Decode(decoded, text.toStdString()), is_text);

        QCOMPARE(QByteArray::fromStdString(decoded), bytes);
    }

    void guidsDiffer()
    {
        const std::string guid = Base::GuidUtil::CreateGuid();

        QCOMPARE(guid.size(), size_t(36));
        QVERIFY(guid != Base::GuidUtil::CreateGuid());
    }

    void directoriesAreMadeWithTheirParents()
    {
        const std::string path = Name("a/b/c");

        QVERIFY(Base::FileSystem::MakeDir(path));
        QVERIFY(Base::FileSystem::MakeDir(path)); // there already

        QCOMPARE(Base::FileSystem::FileExists(path.c_str()), 0);
        Write("file", "x");
        QVERIFY(!Base::FileSystem::MakeDir(Name("file/below")));
        QCOMPARE(Base::FileSystem::DeleteFileW(path.c_str()), -1); // a directory is no file
    }

    void aCopyNeverReplacesWhatItShallNot()
    {
        Write("source", "new");
        Write("target", "old");

        QCOMPARE(Base::FileSystem::CopyFileW(Name("source").c_str(), Name("target").c_str(), 1),
                 -EEXIST);
        QCOMPARE(FileBytes(folder_->filePath("target")), QByteArray("old"));
        QCOMPARE(Base::FileSystem::CopyFileW(Name("source").c_str(), Name("target").c_str(), 0), 0);
        QCOMPARE(FileBytes(folder_->filePath("target")), QByteArray("new"));
        QCOMPARE(Base::FileSystem::CopyFileW(Name("missing").c_str(), Name("other").c_str(), 0),
                 -ENOENT);
        QCOMPARE(
            Base::FileSystem::CopyFileW(Name("source").c_str(), Name("no/such/folder").c_str(), 0),
            -ENOENT);

        QCOMPARE(QDir(folder_->path()).entryList(QDir::Files), QStringList({"source", "target"}));
    }

    void renamingReplacesAtOnce()
    {
        Write("source", "new");
        Write("target", "old");

        QCOMPARE(Base::FileSystem::RenameFile(Name("source").c_str(), Name("target").c_str()), 0);

        QCOMPARE(FileBytes(folder_->filePath("target")), QByteArray("new"));
        QCOMPARE(Base::FileSystem::FileExists(Name("source").c_str()), -1);
        QCOMPARE(Base::FileSystem::RenameFile(Name("source").c_str(), Name("target").c_str()), -1);
    }

    void seamsComeBackWithAnEmptyFunction()
    {
        Base::OS::SetCapsLockSource([] { return true; });
        QVERIFY(Base::OS::IsCapsLockOn());
        Base::OS::SetCapsLockSource([]() -> bool { throw std::runtime_error("no keyboard"); });
        QVERIFY(!Base::OS::IsCapsLockOn());

        Base::OS::SetCapsLockSource(nullptr);

        if (!qEnvironmentVariableIsSet("DISPLAY"))
            QVERIFY(!Base::OS::IsCapsLockOn());
        bool asked = false;
        Base::MonitorDriveUtil::SetBackend(
            [&asked](bool enable, Base::MonitorDriveUtil::DeviceChangeCallBack, void *) {
                asked = enable;
                return true;
            });
        QVERIFY(Base::MonitorDriveUtil::SetDeviceChangeCallBack(true, nullptr, nullptr));
        QVERIFY(asked);
        Base::MonitorDriveUtil::SetBackend(
            [](bool, Base::MonitorDriveUtil::DeviceChangeCallBack, void *) -> bool {
                throw std::runtime_error("no wall");
            });
        QVERIFY(!Base::MonitorDriveUtil::SetDeviceChangeCallBack(true, nullptr, nullptr));
        Base::MonitorDriveUtil::SetBackend(nullptr);
        // The default follows screens, of which a program without windows knows none.
        QVERIFY(!Base::MonitorDriveUtil::SetDeviceChangeCallBack(true, nullptr, nullptr));
    }

private:
    std::string Name(const QString &name) const { return folder_->filePath(name).toStdString(); }

    void Write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(folder_->filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), qint64(bytes.size()));
    }

    CTestGuard guard_;
    std::unique_ptr<QTemporaryDir> folder_;
};

QTEST_GUILESS_MAIN(TestBase)
#include "tst_base.moc"
