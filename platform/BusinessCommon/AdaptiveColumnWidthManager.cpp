// SPDX-License-Identifier: MIT
#include "BusinessCommon/AdaptiveColumnWidthManager.h"

#include "BusinessCommon/ApplicationEnd.h"
#include "BusinessCommon/LayoutExchange.h"
#include "BusinessCommon/NetErrors.h"
#include "Nim/Base/Log.h"
#include "Nim/Base/Replaceable.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <deque>
#include <exception>
#include <vector>

namespace BusinessCommon {
namespace {

using Param = CAdaptiveColumnWidthObserver::Param;
using CHandler =
    Nim::Base::CReplaceable<void(const AdaptiveLayout &, CAdaptiveColumnWidthManager::Answer)>;

constexpr char kRequest[] = "BusinessCommon::CAdaptiveColumnWidthManager::"
                            "AsyRequestAdaptiveColumnWidth";
constexpr char kCategory[] = "ClientWarningAndMore";
constexpr int kFinishTimeMs = 800;

// One request of a manager. Used by the GUI thread.
struct Request
{
    bool is_answered = false;
    Param param;
};

CHandler &CurrentHandler()
{
    static auto *const handler =
        new CHandler([](const AdaptiveLayout &layout, CAdaptiveColumnWidthManager::Answer answer) {
            CLayoutQueue::Instance().Add(layout, std::move(answer));
        });
    return *handler;
}

} // namespace

struct CAdaptiveColumnWidthManagerDataPtr
{
    std::vector<CAdaptiveColumnWidthObserver *> vec_observers_;
    std::deque<std::shared_ptr<Request>> list_requests_;
};

namespace {

using WeakData = std::weak_ptr<CAdaptiveColumnWidthManagerDataPtr>;

void TellObservers(CAdaptiveColumnWidthManagerDataPtr &data, const Param &param)
{
    const std::vector<CAdaptiveColumnWidthObserver *> observers = data.vec_observers_;
    for (CAdaptiveColumnWidthObserver *const observer : observers) {
        const auto &current = data.vec_observers_; // one may have unregistered another
        if (std::find(current.begin(), current.end(), observer) == current.end())
            continue;
        try {
            observer->UpdateAdaptiveColumnWidthCurrentState(param);
        } catch (const std::exception &failure) {
            Nim::Base::Log::WriteFramed(kRequest, __FILE__, __LINE__, Nim::Base::Log::kError,
                                        kCategory, "An observer threw: %s", failure.what());
        }
    }
}

// An answer that came early waits for those of the requests before it.
void OnAnswer(const WeakData &weak, const std::shared_ptr<Request> &request, const Param &param)
{
    const auto data = weak.lock();
    if (!data)
        return;
    request->is_answered = true;
    request->param = param;
    while (!data->list_requests_.empty() && data->list_requests_.front()->is_answered) {
        const auto first = data->list_requests_.front();
        data->list_requests_.pop_front();
        TellObservers(*data, first->param);
    }
}

// Sees to it that a request is answered exactly once, also when its answer is dropped.
class CAnswerOnce
{
public:
    CAnswerOnce(WeakData data, std::shared_ptr<Request> request, bool is_write)
        : data_(std::move(data)), request_(std::move(request)), is_write_(is_write)
    {}
    CAnswerOnce(const CAnswerOnce &) = delete;
    CAnswerOnce &operator=(const CAnswerOnce &) = delete;
    ~CAnswerOnce() { Give(FailedLayout(kNetBroken)); }

    void Give(Param param)
    {
        if (is_given_.exchange(true))
            return;
        param.get_or_post = is_write_ ? 1 : 0;
        PostToGui([data = data_, request = request_, param] { OnAnswer(data, request, param); });
    }

private:
    const WeakData data_;
    const std::shared_ptr<Request> request_;
    const bool is_write_;
    std::atomic<bool> is_given_{false};
};

} // namespace

CAdaptiveColumnWidthManager::CAdaptiveColumnWidthManager()
    : d_ptr_(std::make_shared<CAdaptiveColumnWidthManagerDataPtr>())
{}

CAdaptiveColumnWidthManager::~CAdaptiveColumnWidthManager()
{
    d_ptr_->vec_observers_.clear(); // an observer may be the caller
}

void CAdaptiveColumnWidthManager::RegisterObserver(CAdaptiveColumnWidthObserver *observer)
{
    UnRegisterObserver(observer);
    if (observer)
        d_ptr_->vec_observers_.push_back(observer);
}

void CAdaptiveColumnWidthManager::UnRegisterObserver(CAdaptiveColumnWidthObserver *observer)
{
    auto &observers = d_ptr_->vec_observers_;
    observers.erase(std::remove(observers.begin(), observers.end(), observer), observers.end());
}

void CAdaptiveColumnWidthManager::AsyRequestAdaptiveColumnWidth(
    const std::shared_ptr<const AdaptiveLayout> &layout)
{
    if (!layout) {
        Nim::Base::Log::WriteFramed(kRequest, __FILE__, __LINE__, Nim::Base::Log::kWarning,
                                    kCategory, "No layout.");
        return;
    }
    AtApplicationEnd(EndStep::FinishWrites,
                     [] { CAdaptiveColumnWidthManager::FinishWrites(kFinishTimeMs); });
    const auto request = std::make_shared<Request>();
    d_ptr_->list_requests_.push_back(request);
    const auto once = std::make_shared<CAnswerOnce>(d_ptr_, request, IsWrite(*layout));
    try {
        (*CurrentHandler().Get())(*layout, [once](const Param &param) { once->Give(param); });
    } catch (const std::exception &failure) {
        Nim::Base::Log::WriteFramed(kRequest, __FILE__, __LINE__, Nim::Base::Log::kError, kCategory,
                                    "Stopped by an exception: %s", failure.what());
    }
}

void CAdaptiveColumnWidthManager::SetHandler(Handler handler)
{
    CurrentHandler().Set(std::move(handler));
}

bool CAdaptiveColumnWidthManager::FinishWrites(int timeout_ms)
{
    return CLayoutQueue::Instance().FinishWrites(
        std::chrono::milliseconds(std::max(timeout_ms, 0)));
}

} // namespace BusinessCommon
