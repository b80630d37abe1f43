// SPDX-License-Identifier: MIT
#include "support/TestGuard.h"

#include <Nim/Base/Log.h>
#include <Nim/Base/OS.h>

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

namespace {

CTestGuard *current = nullptr;

QStringList LeakedWindows()
{
    QStringList leaked;
    if (!qobject_cast<QApplication *>(QCoreApplication::instance()))
        return leaked;
    const auto windows = QApplication::topLevelWidgets();
    for (const QWidget *const window : windows) {
        if (!window->inherits("Vantor::CStyleManager"))
            leaked.append("window left behind: " + QString(window->metaObject()->className()));
    }
    return leaked;
}

} // namespace

void CTestGuard::Collect(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (current && (type == QtWarningMsg || type == QtCriticalMsg)) {
        const std::lock_guard<std::mutex> lock(current->mutex_);
        // The offscreen platform says so of every window and popup.
        if (!text.startsWith("This plugin does not support "))
            current->state_.warnings.append(text);
    } else if (current && current->state_.previous) {
        current->state_.previous(type, context, text);
    }
}

void CTestGuard::Begin()
{
    state_ = {};
    current = this;
    state_.previous = qInstallMessageHandler(Collect);
    Nim::Base::Log::SetSink(
        [this](int level, const std::string &category, const std::string &message) {
            const std::lock_guard<std::mutex> lock(mutex_);
            state_.log.append(QString::number(level) + ' ' + QString::fromStdString(category) + ' '
                              + QString::fromStdString(message));
        });
}

QString CTestGuard::End()
{
    qInstallMessageHandler(state_.previous);
    current = nullptr;
    Nim::Base::Log::SetSink(nullptr);
    Nim::Base::OS::SetListSeparatorSource(nullptr);
    Nim::Base::OS::SetCapsLockSource(nullptr);

    const std::lock_guard<std::mutex> lock(mutex_); // a last line may still be under way
    QStringList faults;
    QStringList &warnings = state_.warnings;
    for (const QString &part : qAsConst(state_.announced)) {
        if (!warnings.removeOne(warnings.filter(part).value(0)))
            faults.append("announced but not seen: " + part);
    }
    for (const QString &part : qAsConst(state_.announced_often)) {
        const auto holds = [&part](const QString &warning) { return warning.contains(part); };
        warnings.erase(std::remove_if(warnings.begin(), warnings.end(), holds), warnings.end());
    }
    for (const QString &warning : qAsConst(warnings))
        faults.append("warning: " + warning);
    for (const QString &line : qAsConst(state_.log)) {
        if (!state_.is_log_announced && !line.startsWith('3'))
            faults.append("log: " + line);
    }
    return (faults + LeakedWindows()).join('\n');
}

QStringList CTestGuard::LogLines() const
{
    const std::lock_guard<std::mutex> lock(mutex_);
    return state_.log;
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
