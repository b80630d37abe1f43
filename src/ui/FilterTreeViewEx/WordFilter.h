// SPDX-License-Identifier: MIT
#pragma once

#include "ui/FilterTreeViewEx/KeyWordTrail.h"

#include <Ravel/RowFilter.h>

#include <QtCore/QStringList>

#include <vector>

QT_BEGIN_NAMESPACE
class QModelIndex;
QT_END_NAMESPACE

namespace Ravel {

class CTreeViewModel;

} // namespace Ravel

namespace Vantor {

/// \brief A keyword, or one list of texts for each column, and the rows that it lets pass.
class CWordFilter
{
public:
    /// \return false when it is the keyword already.
    bool SetKeyWord(const QString &keyword);
    /// \return false when they are the lists already.
    bool SetLists(const std::vector<QStringList> &lists);

    [[nodiscard]] bool AcceptsAll() const { return filter_.AcceptsAll(); }
    /// \brief Whether a row of any model passes, cell by cell.
    /// \param first  its index in column 0.
    [[nodiscard]] bool AcceptsCells(const QModelIndex &first) const;
    [[nodiscard]] bool AcceptsRow(const Ravel::CTreeViewModel &model, int row) const;

    /// \brief The rows of \a model that pass. Rows that are known to fail are not looked at.
    const Ravel::CRowSet &Rows(const Ravel::CTreeViewModel &model);
    /// \brief Whether Rows() has been called since the filter and the texts of \a model changed.
    [[nodiscard]] bool IsApplied(const Ravel::CTreeViewModel &model) const;

    /// \brief There is another model, or other rows in it: look at all of them again.
    void Forget();

private:
    enum class Mode { Lists, KeyWord }; // 0 and 1

    Mode mode_ = Mode::Lists;
    QString keyword_;
    std::vector<QStringList> lists_;
    Ravel::CRowFilter filter_; // one of the two, prepared
    CKeyWordTrail trail_;
    Ravel::CRowSet listed_;       // the rows that passed the lists last
    quint64 applied_version_ = 0; // of the texts; 0: not applied yet
};

} // namespace Vantor
