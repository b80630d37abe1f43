// SPDX-License-Identifier: MIT
#include "ui/CustomizeColumnButton/AdaptiveColumnWidthController.h"

#include "common/Guard.h"

namespace Vantor {
namespace {

constexpr int kStateSuccess = 1;

} // namespace

struct CAdaptiveColumnWidthControllerDataPtr
{
    std::unique_ptr<BusinessCommon::CAdaptiveColumnWidthManager> ptr_manager_;
};

CAdaptiveColumnWidthController::CAdaptiveColumnWidthController(QObject *parent)
    : QObject(parent), d_ptr_(std::make_unique<CAdaptiveColumnWidthControllerDataPtr>())
{}

CAdaptiveColumnWidthController::~CAdaptiveColumnWidthController()
{
    if (d_ptr_->ptr_manager_)
        d_ptr_->ptr_manager_->UnRegisterObserver(this);
}

void CAdaptiveColumnWidthController::AdaptiveGetOrPostLayoutCurrentColumnState(
    const BusinessCommon::AdaptiveLayout &layout)
{
    static constexpr char kFunction[] =
        "Vantor::CAdaptiveColumnWidthController::AdaptiveGetOrPostLayoutCurrentColumnState";
    RunGuarded(kFunction, [&] {
        if (!d_ptr_->ptr_manager_) {
            d_ptr_->ptr_manager_ = std::make_unique<BusinessCommon::CAdaptiveColumnWidthManager>();
            d_ptr_->ptr_manager_->RegisterObserver(this);
        }
        d_ptr_->ptr_manager_->AsyRequestAdaptiveColumnWidth(
            std::make_shared<BusinessCommon::AdaptiveLayout>(layout));
    });
}

void CAdaptiveColumnWidthController::UpdateAdaptiveColumnWidthCurrentState(
    const BusinessCommon::CAdaptiveColumnWidthObserver::Param &param)
{
    const bool is_write = param.get_or_post != 0;
    // The receiver of a signal may delete this object, so each is the last thing that happens.
    if (param.current_column_state != kStateSuccess)
        Q_EMIT SignalRequestDataFailed(param.error_code.first, param.error_code.second,
                                       is_write ? 1 : 0);
    else if (is_write)
        Q_EMIT SignalPostLayoutDataSuccess(true);
    else
        Q_EMIT SignalGetLayoutDataSuccess(QString::fromStdString(param.result.receive_data));
}

} // namespace Vantor
