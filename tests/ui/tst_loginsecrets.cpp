// SPDX-License-Identifier: MIT
// Looks for a password in all writable memory of this process. The address sanitizer keeps memory
// that was given up, with its content.
#include "support/RawServer.h"
#include "support/Test.h"

#include <BusinessCommon/NetCommManager.h>
#include <Nim/Base/Encrypt.h>
#include <Ravel/PasswordLineEdit.h>
#include <Vantor/CAccountPasswordWidget>
#include <Vantor/CDaxLoginParam>
#include <Vantor/CPasswordFrame>

#include <sys/wait.h>

#include <csignal>

using BusinessCommon::CNetCommManager;

namespace {

constexpr char kSecret[] = "aQ9!zX7#mK2$wE5%rT8&yU1*"; // longer than a short string
constexpr size_t kLength = sizeof kSecret - 1;
constexpr size_t kLargest = size_t(1) << 30; // the sanitizer's tables are larger

// A character of the password has 1 byte in UTF-8 and 2 in UTF-16.
__attribute__((no_sanitize("address", "undefined"))) int Count(const char *begin, const char *end,
                                                               size_t width)
{
    int count = 0;
    for (const char *at = begin; at + kLength * width <= end; ++at) {
        size_t same = 0;
        while (same < kLength && at[same * width] == kSecret[same]
               && (width == 1 || at[same * width + 1] == 0))
            ++same;
        count += same == kLength;
    }
    return count;
}

// Where the password is, one line for each mapping.
QStringList FindSecret()
{
    QFile maps("/proc/self/maps");
    if (!maps.open(QIODevice::ReadOnly))
        return {"no list of mappings"};
    QStringList found;
    const auto lines = maps.readAll().split('\n');
    for (const QByteArray &line : lines) {
        const QList<QByteArray> range = line.left(line.indexOf(' ')).split('-');
        if (range.size() != 2 || !line.contains(" rw"))
            continue;
        const auto *const begin = reinterpret_cast<const char *>(range[0].toULongLong(nullptr, 16));
        const auto *const end = reinterpret_cast<const char *>(range[1].toULongLong(nullptr, 16));
        if (size_t(end - begin) > kLargest)
            continue;
        const int narrow = Count(begin, end, 1);
        const int wide = Count(begin, end, 2);
        if (narrow + wide > 0)
            found << QString("%1 as UTF-8, %2 as UTF-16 in %3")
                         .arg(narrow)
                         .arg(wide)
                         .arg(QString(line));
    }
    return found;
}

} // namespace

class TestLoginSecrets : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override
    {
        guard_.AnnounceWarnings("Could not parse stylesheet"); // of the Caps Lock tip
    }

    pid_t server_ = 0;
    int port_ = 0;

private Q_SLOTS:
    void initTestCase()
    {
        int port[2];
        QCOMPARE(pipe(port), 0);
        server_ = fork(); // its memory is not searched
        if (server_ == 0) {
            const ServerFault passed{
                "", CRawServer::ReplyWith(
                        R"({"ResponseStatus":{"ErrorCode":0,"Data":{"CheckResult":9}}})")};
            const CRawServer server(passed);
            const int number = server.Port();
            _exit(write(port[1], &number, sizeof number) == sizeof number ? pause() : 1);
        }
        QCOMPARE(read(port[0], &port_, sizeof port_), ssize_t(sizeof port_));
        close(port[0]);
        close(port[1]);
    }

    void cleanupTestCase()
    {
        kill(server_, SIGKILL);
        waitpid(server_, nullptr, 0);
    }

    void anAttemptLeavesNoPasswordBehind()
    {
        CNetCommManager::SetServer("127.0.0.1", port_);
        auto form = std::make_unique<Vantor::CAccountPasswordWidget>();
        for (size_t i = 0; i < kLength; ++i)
            QTest::keyClick(form->GetPasswordEditWidget()->GetPasswordLineEdit(), kSecret[i]);
        std::string result;

        const auto state = form->LoginIn(result, "plugin");
        form->Clear();
        QTest::qWait(1000); // threads and connections end

        QCOMPARE(state, Vantor::CAccountPasswordWidget::kLoginSucceeded);
        QCOMPARE(FindSecret(), QStringList());
        QVERIFY(guard_.LogLines().filter("zX7#").isEmpty());
    }

    void aRecordLeavesNoPasswordBehind()
    {
        {
            std::string secret = kSecret;
            NimClientFrameWork::CDaxLoginParam param;
            param.SetVal_password(secret);
            const NimClientFrameWork::CDaxLoginParam copy(param);
            param.SetVal_password("another one, no less long than the first");
            Nim::Base::Encrypt::Wipe(secret);
        }
        QCOMPARE(FindSecret(), QStringList());
    }

    void aPasswordThatIsLeftIsFound()
    {
        const auto narrow = std::make_unique<std::string>(kSecret);
        const auto wide = std::make_unique<QString>(kSecret);
        const QStringList found = FindSecret();
        QVERIFY(!found.isEmpty() && found.join(' ').contains("UTF-16"));
    }
};

QTEST_MAIN(TestLoginSecrets)
#include "tst_loginsecrets.moc"
