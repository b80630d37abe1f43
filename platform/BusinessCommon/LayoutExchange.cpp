// SPDX-License-Identifier: MIT
#include "BusinessCommon/LayoutExchange.h"

#include "BusinessCommon/NetCommManager.h"
#include "BusinessCommon/NetExchange.h"
#include "ClientComm/RapidJsonProto.h"

#include <algorithm>
#include <iterator>
#include <thread>
#include <utility>

namespace BusinessCommon {
namespace {

using namespace std::chrono_literals;
using Param = CAdaptiveColumnWidthObserver::Param;
using Error = std::pair<int, int>;

constexpr char kUrl[] = "/Quorra/Brisent/Platform/V0/AdaptiveLayout";
constexpr char kLayoutPath[] = "/ResponseStatus/Data/AdaptiveLayout/LayoutData";
constexpr auto kIdleTime = 30s; // the connection is kept alive so long, too

ClientComm::CClientSendInfo RequestFor(const AdaptiveLayout &layout)
{
    ClientComm::CRapidJsonProto body;
    body.SetString("/AdaptiveLayoutRequest/Key", layout.key_value);
    body.SetString("/AdaptiveLayoutRequest/Type", std::to_string(layout.type_value));
    if (IsWrite(layout))
        body.SetString("/AdaptiveLayoutRequest/LayoutData", layout.layout_data);
    ClientComm::CClientSendInfo send;
    send.SetVal_URL(kUrl);
    send.SetVal_Method(IsWrite(layout) ? "PUT" : "GET");
    send.SetVal_Request_Data(body.ToJson());
    return send;
}

} // namespace

bool IsWrite(const AdaptiveLayout &layout)
{
    return !layout.layout_data.empty();
}

Param FailedLayout(int code)
{
    Param param;
    param.error_code = {kModuleNetwork, code};
    return param;
}

Param ExchangeLayout(const AdaptiveLayout &layout, const std::string &session)
{
    ClientComm::CClientRecvInfo recv;
    const bool is_answered = ExchangeAs({session}, recv, RequestFor(layout));
    const Nim::Base::Error::ErrorCode error = recv.GetVal_Error_code();
    Param param;
    param.error_code = {error.module_code, error.error_code};
    if (!is_answered || error.error_code != 0)
        return param;
    ClientComm::CRapidJsonProto reply;
    if (!reply.Load(recv.Read().Receive_Data))
        return FailedLayout(kNetBadReply);
    const int code = reply.GetInt("/ResponseStatus/ErrorCode");
    if (code > 0) {
        param.error_code = {reply.GetInt("/ResponseStatus/ErrorModule"), code};
        return param;
    }
    // An empty layout is a text; a foreign or damaged reply has no text.
    const std::string missing(1, '\0');
    param.result.receive_data = reply.GetString(kLayoutPath, missing);
    if (code != 0 || (!IsWrite(layout) && param.result.receive_data == missing))
        return FailedLayout(kNetBadReply);
    if (IsWrite(layout))
        param.result.receive_data.clear();
    param.current_column_state = 1;
    return param;
}

CLayoutQueue &CLayoutQueue::Instance()
{
    static auto *const queue = new CLayoutQueue; // its thread may outlive every static
    return *queue;
}

void CLayoutQueue::Add(const AdaptiveLayout &layout, Answer answer)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    jobs_.push_back({layout, CNetCommManager::Session(), CurrentServerNumber(), std::move(answer)});
    if (!is_running_)
        std::thread(&CLayoutQueue::Work, this).detach();
    is_running_ = true;
    changed_.notify_all();
}

void CLayoutQueue::Work()
{
    std::unique_lock<std::mutex> lock(mutex_);
    while (changed_.wait_for(lock, kIdleTime, [this] { return !jobs_.empty(); })) {
        Job job = std::move(jobs_.front());
        jobs_.pop_front();
        is_writing_ = IsWrite(job.layout);
        lock.unlock();
        auto param = FailedLayout(kNetFailed);
        try {
            param = ExchangeLayout(job.layout, job.session);
        } catch (...) { // out of memory, say: a failure as any other, this thread goes on
        }
        const bool is_away = param.error_code == Error{kModuleNetwork, kNetTimeout}
                             || param.error_code == Error{kModuleNetwork, kNetConnect};
        std::deque<Job> failed;
        if (is_away)
            failed = TakeReads(job.server);
        job.answer(param);
        for (const Job &read : failed)
            read.answer(param);
        job = {}; // the answers hold anything, so they go without the lock
        failed.clear();
        lock.lock();
        is_writing_ = false;
        changed_.notify_all();
    }
    is_running_ = false;
}

std::deque<CLayoutQueue::Job> CLayoutQueue::TakeReads(int server)
{
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto stays = [server](const Job &job) {
        return job.server != server || IsWrite(job.layout);
    };
    const auto first = std::stable_partition(jobs_.begin(), jobs_.end(), stays);
    std::deque<Job> reads(std::make_move_iterator(first), std::make_move_iterator(jobs_.end()));
    jobs_.erase(first, jobs_.end());
    return reads;
}

bool CLayoutQueue::FinishWrites(std::chrono::milliseconds time)
{
    std::deque<Job> given_up; // their answers are failures; given without the lock
    std::unique_lock<std::mutex> lock(mutex_);
    const bool is_finished = changed_.wait_for(lock, time, [this] { return !HasWrites(); });
    if (!is_finished)
        given_up.swap(jobs_);
    lock.unlock();
    return is_finished;
}

bool CLayoutQueue::HasWrites() const
{
    return is_writing_ || std::any_of(jobs_.begin(), jobs_.end(), [](const Job &job) {
               return IsWrite(job.layout);
           });
}

} // namespace BusinessCommon
