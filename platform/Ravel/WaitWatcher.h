// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>
#include <Ravel/UiSingleton.h>

#include <QtCore/QObject>

namespace Ravel {

class CWaitWatcher;

} // namespace Ravel

extern template class VANTOR_PLATFORM_EXPORT Ravel::CUiSingleton<Ravel::CWaitWatcher>;

namespace Ravel {

/// \brief Knows whether a CChaseDialog is shown, so that a window can refuse to close meanwhile.
///
/// Reached through Ravel::CUiSingleton<Ravel::CWaitWatcher>::Instance(). GUI thread only.
class VANTOR_PLATFORM_EXPORT CWaitWatcher : public QObject, public CUiSingleton<CWaitWatcher>
{
    Q_OBJECT

public:
    explicit CWaitWatcher(QObject *parent = nullptr);

    /// \brief Whether at least one waiting dialog is shown.
    [[nodiscard]] bool IsWaiting() const;

    /// \brief Called by a waiting dialog when it appears.
    void BeginWait();
    /// \brief Called by a waiting dialog when it disappears; each call undoes one BeginWait().
    void EndWait();

Q_SIGNALS:
    /// Emitted when the first wait begins and when the last one ends.
    void SignalWaitingChanged(bool waiting);

private:
    int waits_ = 0;
};

} // namespace Ravel
