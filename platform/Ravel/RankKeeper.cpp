// SPDX-License-Identifier: MIT
#include "Ravel/RankKeeper.h"

#include <QtConcurrent/QtConcurrentRun>

namespace Ravel {
namespace {

constexpr int kDelay_ms = 200; // rows often come in several portions

} // namespace

CRankKeeper::CRankKeeper(std::function<Source()> source, QObject *parent)
    : QObject(parent), source_(std::move(source))
{
    delay_.setSingleShot(true);
    delay_.setInterval(kDelay_ms);
    connect(&delay_, &QTimer::timeout, this, &CRankKeeper::Start);
    connect(&run_, &QFutureWatcherBase::finished, this, &CRankKeeper::OnRanked);
}

CRankKeeper::Ranks CRankKeeper::Known(int column) const
{
    return static_cast<size_t>(column) < ranks_.size() ? ranks_[static_cast<size_t>(column)]
                                                       : nullptr;
}

void CRankKeeper::Keep(int column, Ranks ranks)
{
    if (static_cast<size_t>(column) >= ranks_.size())
        ranks_.resize(static_cast<size_t>(column) + 1);
    ranks_[static_cast<size_t>(column)] = std::move(ranks);
}

void CRankKeeper::Prepare()
{
    is_wanted_ = true;
    Start();
}

void CRankKeeper::Forget()
{
    ranks_.clear();
    if (is_wanted_)
        delay_.start();
}

CRankKeeper::RankedColumns CRankKeeper::RankAll(const CTextReader &reader, int columns)
{
    std::vector<CRankBuilder> builders;
    builders.reserve(static_cast<size_t>(columns));
    for (int column = 0; column < columns; ++column)
        builders.emplace_back(column);
    const bool is_whole = reader.Read([&builders](const CTextBlock &texts) {
        for (CRankBuilder &builder : builders)
            builder.Add(texts);
    });
    RankedColumns ranks;
    for (size_t column = 0; is_whole && column < builders.size(); ++column)
        ranks.push_back(builders[column].Take());
    return ranks;
}

void CRankKeeper::Start()
{
    if (run_.isRunning())
        return; // its end starts the next one
    const Source source = source_();
    reader_ = source.reader;
    run_.setFuture(QtConcurrent::run(&CRankKeeper::RankAll, source.reader, source.columns));
}

void CRankKeeper::OnRanked()
{
    if (reader_->IsCurrent())
        ranks_ = run_.result();
    else
        delay_.start();
}

} // namespace Ravel
