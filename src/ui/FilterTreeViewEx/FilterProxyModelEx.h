// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QSortFilterProxyModel>
#include <QtCore/QStringList>

#include <memory>
#include <vector>

namespace Vantor {

struct CFilterProxyModelExDataPtr;

/// \brief Filters rows by keywords or by the page they are tagged with.
///
/// The key column tells which: -1 filters by keywords, any other by page. A fresh proxy has Qt's
/// key column 0 and an empty page filter. Dynamic sorting and filtering is off, sorting ignores
/// case.
///
/// Over a Ravel::CTreeViewModel, and over another proxy of this class on top of one, a million rows
/// are filtered and sorted without asking for a single cell; other models are asked cell by cell.
/// GUI thread only.
class VANTOR_EXPORT CFilterProxyModelEx : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit CFilterProxyModelEx(QObject *parent = nullptr);
    ~CFilterProxyModelEx() override;

    /// \brief Show the rows whose tag (role Qt::UserRole + 100 of column 0, as a string) equals
    /// \a tag, such as "Page001", and the rows without one.
    void SetPageFilter(QString tag); // NOLINT(performance-unnecessary-value-param): fixed

    /// \brief Show the rows with a cell whose display text contains \a keyword, case-sensitively;
    /// an empty one shows all.
    ///
    /// When other rows than before pass, the list is sorted anew as a whole.
    void SetKeyWordFilter(QString keyword); // NOLINT(performance-unnecessary-value-param): fixed

    /// \brief Show the rows whose display text of column i passes \a lists [i], for every i.
    ///
    /// The first list is a range in code-unit order: its first entry is the lower and its last the
    /// upper bound, both included. Every other list names the texts that pass, so an empty one
    /// rejects all rows. No lists at all show everything; a first list without bounds, which
    /// callers must not give, passes every text.
    void SetKeyWordsFilter(const std::vector<QStringList> &lists);

    /// \brief Apply the stored keyword or keyword lists again.
    void DoFilter();

    bool filterAcceptsRow(int source_row, const QModelIndex &source_parent) const override;
    void setSourceModel(QAbstractItemModel *source) override;
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    /// \brief The source model's rows in the order shown here, for whoever walks all of them.
    /// \return null when they are the same row numbers; otherwise rowCount() numbers, good until
    /// rows come, go or move.
    [[nodiscard]] const int *SourceRows() const;

protected:
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    class CRanksInUse;

    void SetKey(int column, int role);
    void Refilter();
    bool IsShown(const std::vector<bool> &accepted) const;
    bool Accepts(int row, const QModelIndex &parent) const;
    bool AcceptsWords(int row, const QModelIndex &parent) const;
    bool AcceptsText(const QModelIndex &first) const;
    void FindPage();
    bool AcceptsPage(int row, const QModelIndex &parent) const;
    bool AcceptsTag(int row, const QModelIndex &parent) const;
    [[nodiscard]] bool SortsTexts() const;
    void ReadOrder() const;
    void ForgetOrder();
    void OnSourceRowsChange();
    void OnSourceDataChanged(const QModelIndex &top_left, const QModelIndex &bottom_right,
                             const QVector<int> &roles);
    void OnSourceDestroyed();

    const std::unique_ptr<CFilterProxyModelExDataPtr> d_ptr_;
};

} // namespace Vantor
