// SPDX-License-Identifier: MIT
#include "controller/ListExport/ExportWorkers.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QThreadPool>

namespace Vantor {
namespace {

constexpr int kMostExports = 16; // at the same time; more wait

void AwaitExports()
{
    ExportWorkers().waitForDone();
}

} // namespace

QThreadPool &ExportWorkers()
{
    static QThreadPool *const pool = [] {
        auto *const made = new QThreadPool;
        made->setMaxThreadCount(kMostExports);
        qAddPostRoutine(AwaitExports);
        return made;
    }();
    return *pool;
}

} // namespace Vantor
