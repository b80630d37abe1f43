// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QStringList>

#include <memory>
#include <vector>

namespace Ravel {

class CTextBlock;
struct CRowFilterPtr;

/// \brief What a row of a CTreeViewModel has to hold to be shown, prepared for a million rows.
///
/// Copies share the prepared data and may be used on any thread.
class VANTOR_PLATFORM_EXPORT CRowFilter
{
public:
    /// Every row passes.
    CRowFilter();

    /// \brief The rows with \a text inside one of their cells, case-sensitively; all when it is
    /// empty.
    [[nodiscard]] static CRowFilter WithText(const QString &text);

    /// \brief The rows whose text in column i passes \a lists [i], for every i.
    ///
    /// The first list is a range in code-unit order, from its first entry to its last; an empty one
    /// lets every text pass. Each other list names the texts that pass.
    [[nodiscard]] static CRowFilter WithLists(const std::vector<QStringList> &lists);

    /// \brief Whether a row with these CTextBlock::Letters() may pass; otherwise Accepts() is
    /// false.
    [[nodiscard]] bool MayAccept(quint64 letters) const { return (letters & letters_) == letters_; }

    /// \brief Whether the filter is by a single letter or digit of ASCII. MayAccept() then decides,
    /// unless the row has kWideLetter or texts beyond the columns that count.
    [[nodiscard]] bool IsByOneLetter() const;

    /// \brief Whether a row passes whose first \a columns texts count; a missing one is empty.
    [[nodiscard]] bool Accepts(const CTextBlock &texts, int columns) const;

    /// \brief How many lists WithLists() was given; 0 for a filter by text.
    [[nodiscard]] int ListCount() const;
    /// \brief Whether the text of \a column, below ListCount(), passes its list; a missing one is
    /// empty. For a filter by text: whether the text of any \a column holds it.
    [[nodiscard]] bool ListAccepts(const CTextBlock &texts, int column) const;

    /// \brief Whether every row passes.
    [[nodiscard]] bool AcceptsAll() const { return !d_ptr_; }

private:
    std::shared_ptr<const CRowFilterPtr> d_ptr_;
    quint64 letters_ = 0; // that a row has to have
};

} // namespace Ravel
