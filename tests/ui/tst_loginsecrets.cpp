// SPDX-License-Identifier: MIT
#include "support/TestGuard.h"

#include <BusinessCommon/NetCommManager.h>
#include <ClientFramework/FrameworkManagerInterface.h>
#include <Ravel/PasswordLineEdit.h>
#include <Vantor/CAccountPasswordWidget>
#include <Vantor/CDaxLoginParam>
#include <Vantor/CPasswordFrame>

#include <malloc.h>

#include <QtTest/QTest>

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

constexpr char kSecret[] = "aQ9!zX7#mK2$wE5%rT8&yU1*"; // 24 characters, longer than a short string
constexpr size_t kLength = sizeof kSecret - 1;
std::atomic<bool> is_watching{false};
std::atomic<int> found{0};

// Every block of C++ code in this process, the libraries' included. Qt's texts
// and the HTTP library have theirs from malloc().
void Release(void *block) noexcept
{
    if (block && is_watching && memmem(block, malloc_usable_size(block), kSecret, kLength))
        ++found;
    std::free(block);
}

void *Allocate(std::size_t size)
{
    if (void *const block = std::malloc(size ? size : 1))
        return block;
    throw std::bad_alloc();
}

} // namespace

void *operator new(std::size_t size)
{
    return Allocate(size);
}
void *operator new[](std::size_t size)
{
    return Allocate(size);
}
void operator delete(void *block) noexcept
{
    Release(block);
}
void operator delete[](void *block) noexcept
{
    Release(block);
}
void operator delete(void *block, std::size_t /*size*/) noexcept
{
    Release(block);
}
void operator delete[](void *block, std::size_t /*size*/) noexcept
{
    Release(block);
}

class tst_loginsecrets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard_.Begin();
        guard_.AnnounceWarnings("Could not parse stylesheet"); // of the Caps Lock tip
    }

    void cleanup()
    {
        is_watching = false;
        BusinessCommon::CNetCommManager::SetTransport(nullptr);
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void aSecretThatIsLeftIsFound()
    {
        found = 0;
        is_watching = true;
        delete new std::string(kSecret);
        is_watching = false;
        QCOMPARE(found.load(), 1);
    }

    void anAttemptLeavesNoPasswordBehind()
    {
        std::atomic<bool> is_sent{false};
        BusinessCommon::CNetCommManager::SetTransport(
            [&is_sent](ClientComm::CClientRecvInfo &recv, const ClientComm::CClientSendInfo &send) {
                const auto &sent = send.Read();
                is_sent =
                    memmem(sent.Request_Data.data(), sent.Request_Data.size(), kSecret, kLength)
                    && sent.URL.find(kSecret) == std::string::npos;
                recv.SetVal_Receive_Data(
                    R"({"ResponseStatus":{"ErrorCode":0,"Data":{"CheckResult":9}}})");
                return true;
            });
        auto form = std::make_unique<Vantor::CAccountPasswordWidget>();
        QTest::keyClicks(form->GetPasswordEditWidget()->GetPasswordLineEdit(), kSecret);
        found = 0;
        is_watching = true;
        std::string result;
        const auto state = form->LoginIn(result, "plugin");
        QCoreApplication::processEvents();
        form->Clear();
        form.reset();
        is_watching = false;

        QCOMPARE(state, Vantor::CAccountPasswordWidget::kLoginSucceeded);
        QVERIFY(is_sent);
        QCOMPARE(found.load(), 0);
        QVERIFY(result.find(kSecret) == std::string::npos);
        QVERIFY(guard_.LogLines().filter(kSecret).isEmpty());
    }

    void aRecordLeavesNoPasswordBehind()
    {
        std::string secret = kSecret;
        found = 0;
        is_watching = true;
        {
            NimClientFrameWork::CDaxLoginParam param;
            param.SetVal_password(secret);
            const NimClientFrameWork::CDaxLoginParam copy(param);
            param.SetVal_password("another one, no less long than the first");
        }
        is_watching = false;
        QCOMPARE(found.load(), 0);
    }

private:
    CTestGuard guard_;
};

QTEST_MAIN(tst_loginsecrets)
#include "tst_loginsecrets.moc"
