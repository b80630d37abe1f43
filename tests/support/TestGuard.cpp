// SPDX-License-Identifier: MIT
#include "support/TestGuard.h"

#include <Nim/Base/Log.h>
#include <Nim/Base/OS.h>

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <mutex>

struct CTestGuardPtr
{
    mutable std::mutex mutex_; // messages and log lines come from any thread
    QStringList list_warnings_;
    QStringList list_announced_;
    QStringList list_announced_often_;
    QStringList list_log_;
    bool b_log_announced_ = false;
    QtMessageHandler previous_ = nullptr;
};

namespace {

CTestGuardPtr *current = nullptr;

// What the offscreen platform says of every window and popup.
bool IsPlatformNoise(const QString &text)
{
    return text.startsWith(QLatin1String("This plugin does not support "));
}

void CollectMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (current && (type == QtWarningMsg || type == QtCriticalMsg)) {
        const std::lock_guard<std::mutex> lock(current->mutex_);
        if (!IsPlatformNoise(text))
            current->list_warnings_.append(text);
    } else if (current && current->previous_) {
        current->previous_(type, context, text);
    }
}

QStringList LeakedWindows()
{
    QStringList leaked;
    if (!qobject_cast<QApplication *>(QCoreApplication::instance()))
        return leaked;
    const auto windows = QApplication::topLevelWidgets();
    for (const QWidget *const window : windows) {
        if (!window->inherits("Vantor::CStyleManager"))
            leaked.append(QLatin1String(window->metaObject()->className()));
    }
    return leaked;
}

} // namespace

CTestGuard::CTestGuard() : d_ptr_(std::make_unique<CTestGuardPtr>()) {}

CTestGuard::~CTestGuard()
{
    if (current == d_ptr_.get())
        static_cast<void>(End());
}

void CTestGuard::Begin()
{
    d_ptr_->list_warnings_.clear();
    d_ptr_->list_announced_.clear();
    d_ptr_->list_announced_often_.clear();
    d_ptr_->list_log_.clear();
    d_ptr_->b_log_announced_ = false;
    current = d_ptr_.get();
    d_ptr_->previous_ = qInstallMessageHandler(CollectMessage);
    Nim::Base::Log::SetSink([data = d_ptr_.get()](int level, const std::string &category,
                                                  const std::string &message) {
        const std::lock_guard<std::mutex> lock(data->mutex_);
        data->list_log_.append(QStringLiteral("%1 %2 %3")
                                   .arg(QString::number(level), QString::fromStdString(category),
                                        QString::fromStdString(message)));
    });
}

QString CTestGuard::End()
{
    qInstallMessageHandler(d_ptr_->previous_);
    current = nullptr;
    Nim::Base::Log::SetSink(nullptr);
    Nim::Base::OS::SetListSeparatorSource(nullptr);
    Nim::Base::OS::SetCapsLockSource(nullptr);

    const std::lock_guard<std::mutex> lock(d_ptr_->mutex_); // a last line may still be under way
    QStringList faults;
    for (const QString &part : qAsConst(d_ptr_->list_announced_)) {
        const auto seen = d_ptr_->list_warnings_.filter(part);
        if (seen.isEmpty())
            faults.append(QStringLiteral("announced but not seen: ") + part);
        else
            d_ptr_->list_warnings_.removeOne(seen.first());
    }
    for (const QString &part : qAsConst(d_ptr_->list_announced_often_)) {
        QStringList &warnings = d_ptr_->list_warnings_;
        const auto holds = [&part](const QString &warning) { return warning.contains(part); };
        warnings.erase(std::remove_if(warnings.begin(), warnings.end(), holds), warnings.end());
    }
    for (const QString &warning : qAsConst(d_ptr_->list_warnings_))
        faults.append(QStringLiteral("warning: ") + warning);
    for (const QString &line : qAsConst(d_ptr_->list_log_)) {
        if (!d_ptr_->b_log_announced_ && !line.startsWith(QLatin1Char('3')))
            faults.append(QStringLiteral("log: ") + line);
    }
    const QStringList windows = LeakedWindows();
    for (const QString &window : windows)
        faults.append(QStringLiteral("window left behind: ") + window);
    return faults.join(QLatin1Char('\n'));
}

void CTestGuard::AnnounceWarning(const QString &part)
{
    d_ptr_->list_announced_.append(part);
}

void CTestGuard::AnnounceWarnings(const QString &part)
{
    d_ptr_->list_announced_often_.append(part);
}

void CTestGuard::AnnounceLogLines()
{
    d_ptr_->b_log_announced_ = true;
}

QStringList CTestGuard::LogLines() const
{
    const std::lock_guard<std::mutex> lock(d_ptr_->mutex_);
    return d_ptr_->list_log_;
}

void CGuardedTest::init()
{
    guard_.Begin();
    SetUp();
}

void CGuardedTest::cleanup()
{
    TearDown();
    folder_.Clear();
    const QString fault = guard_.End();
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
}
