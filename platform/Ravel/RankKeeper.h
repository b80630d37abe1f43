// SPDX-License-Identifier: MIT
#pragma once

#include "Ravel/TextRanks.h"
#include "Ravel/TextReader.h"

#include <QtCore/QFutureWatcher>
#include <QtCore/QObject>
#include <QtCore/QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace Ravel {

/// \brief Keeps the ranks of a model's columns until its texts change, and works them out on
/// another thread when asked to. GUI thread only.
class CRankKeeper : public QObject
{
    Q_OBJECT

public:
    using Ranks = std::shared_ptr<const CTextRanks>;

    struct Source
    {
        CTextReader reader;
        int columns;
    };

    /// \param source  the model's texts as they are now.
    explicit CRankKeeper(std::function<Source()> source, QObject *parent = nullptr);

    /// \brief The ranks of \a column, or null when they have to be worked out.
    [[nodiscard]] Ranks Known(int column) const;
    void Keep(int column, Ranks ranks);

    /// \brief Work out all columns in the background, now and after each change.
    void Prepare();
    /// \brief Forget the ranks, because rows, texts or columns changed.
    void Forget();

private:
    // The ranks of all columns; empty when the texts changed while they were read.
    using RankedColumns = std::vector<Ranks>;

    static RankedColumns RankAll(const CTextReader &reader, int columns);
    void Start();
    void OnRanked();

    const std::function<Source()> source_;
    RankedColumns ranks_; // by column; null before the first request
    bool is_wanted_ = false;
    std::optional<CTextReader> reader_; // of the last run
    QFutureWatcher<RankedColumns> run_;
    QTimer delay_;
};

} // namespace Ravel
