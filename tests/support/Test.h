// SPDX-License-Identifier: MIT
// Includes what many tests need.
#pragma once

#include "support/Files.h"
#include "support/Rows.h"
#include "support/TestGuard.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QBuffer>
#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QMutex>
#include <QtCore/QPointer>
#include <QtCore/QProcess>
#include <QtCore/QRandomGenerator>
#include <QtCore/QRegularExpression>
#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtCore/QTranslator>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QStandardItemModel>
#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <csignal>
#include <cstring>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <random>
#include <set>
#include <stdexcept>
#include <thread>
#include <vector>

/// \brief Translates by a function of context and key.
class CTestTranslator : public QTranslator
{
public:
    using Function = std::function<QString(const char *context, const char *key)>;

    explicit CTestTranslator(Function function) : function_(std::move(function)) {}

    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *key, const char *, int) const override
    {
        return function_(context, key);
    }

private:
    const Function function_;
};
