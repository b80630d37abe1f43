// SPDX-License-Identifier: MIT
#pragma once

#include <BusinessCommon/AdaptiveColumnWidthManager.h>
#include <VantorExport.h>

#include <QtCore/QObject>

#include <memory>

namespace Vantor {

struct CAdaptiveColumnWidthControllerDataPtr;

/// \brief Asks the client's layout manager to read and write layout texts, and emits the
/// outcomes as signals.
///
/// Answers come on the GUI thread, in the order of the requests; those that are outstanding when
/// the controller is destroyed are dropped. Connect with Qt::UniqueConnection, so that an
/// initialisation that runs twice does not double a connection. GUI thread only.
class VANTOR_EXPORT CAdaptiveColumnWidthController
    : public QObject,
      public BusinessCommon::CAdaptiveColumnWidthObserver
{
    Q_OBJECT

public:
    explicit CAdaptiveColumnWidthController(QObject *parent = nullptr);
    ~CAdaptiveColumnWidthController() override;

    /// \brief Read the text stored under the key of \a layout when its layout_data is empty, store
    /// layout_data otherwise; the outcome is emitted later, once.
    void AdaptiveGetOrPostLayoutCurrentColumnState(const BusinessCommon::AdaptiveLayout &layout);

    /// \brief The layout manager's answer.
    void UpdateAdaptiveColumnWidthCurrentState(
        const BusinessCommon::CAdaptiveColumnWidthObserver::Param &param) override;

Q_SIGNALS:
    /// A read succeeded; \a layout is empty when nothing is stored.
    void SignalGetLayoutDataSuccess(const QString &layout);
    /// A write succeeded; \a ok is always true.
    void SignalPostLayoutDataSuccess(const bool &ok);
    /// A request failed: module and code of the error, and 0 for a read or 1 for a write.
    void SignalRequestDataFailed(const int &first, const int &second, const int &getOrPost);

private:
    const std::unique_ptr<CAdaptiveColumnWidthControllerDataPtr> d_ptr_;
};

} // namespace Vantor
