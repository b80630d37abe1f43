// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>
#include <ui/FilterTreeViewEx/FlatProxy.h>

#include <QtCore/QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace Ravel {

class CTreeViewModel;

} // namespace Ravel

namespace Vantor {

struct CFilterProxyModelExDataPtr;

/// \brief Filters rows by keywords or by the page they are tagged with.
///
/// The key column decides: -1 filters by keywords, any other by page. A fresh proxy has Qt's
/// key column 0 and an empty page filter. Dynamic sorting and filtering is off, sorting ignores
/// case.
///
/// Over a Ravel::CTreeViewModel, and over another proxy of this class on top of one, a million rows
/// are filtered and sorted without asking for a single cell; other models are asked cell by cell.
/// Each change of the filter or the order is one change of layout. GUI thread only.
class VANTOR_EXPORT CFilterProxyModelEx : public CFlatProxy
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
    /// Rows that come back are where the order has them: those that were hidden while the list was
    /// sorted are sorted, too.
    void SetKeyWordFilter(QString keyword); // NOLINT(performance-unnecessary-value-param): fixed

    /// \brief Show the rows whose display text of column i passes \a lists [i], for every i.
    ///
    /// The first list is a range in code-unit order: its first entry is the lower and its last the
    /// upper bound, both included. Every other list names the texts that pass, so an empty one
    /// rejects all rows. No lists at all show everything; a first list without bounds, which
    /// callers must not give, passes every text.
    void SetKeyWordsFilter(const std::vector<QStringList> &lists);

    /// \brief Apply the stored keyword or keyword lists again. Takes no time while neither they nor
    /// the texts have changed.
    void DoFilter();

    /// \brief Tag the rows shown, in their order, with pages of \a rows_per_page rows; 0 makes one
    /// page.
    /// \return the number of pages, at least 1.
    int CutPages(int rows_per_page);
    /// \return how many rows each page has, or 0 when tags, rows or order have changed since
    /// CutPages().
    [[nodiscard]] int RowsPerPage() const;

    /// \brief The rows of the source in the order shown here, for exports.
    [[nodiscard]] std::vector<int> SourceRows() const;

    bool filterAcceptsRow(int source_row, const QModelIndex &source_parent) const override;
    /// \brief Of QSortFilterProxyModel; declared here for hosts that call it on this class.
    void setFilterKeyColumn(int column);
    /// \brief Filter and sort all rows again.
    void invalidate();

protected:
    Ravel::CRowOrder MakeOrder() override;
    std::vector<int> ShownOf(int first, int last) override;
    void SortAll(int column, Qt::SortOrder order) override;
    void OnSourceReset() override;
    void OnSourceRows(int first, int count) override;

private:
    void SetKey(int column, int role);
    [[nodiscard]] bool IsByWords() const;
    [[nodiscard]] Ravel::CTreeViewModel *Model() const;
    [[nodiscard]] const CFilterProxyModelEx *Below() const;
    [[nodiscard]] Ravel::CRowOrder FilteredOrder();
    [[nodiscard]] std::optional<Ravel::CRowOrder> PageOrder() const;
    [[nodiscard]] bool SortsByRanks() const;
    [[nodiscard]] std::vector<int> Sorted(std::vector<int> rows) const;

    const std::unique_ptr<CFilterProxyModelExDataPtr> d_ptr_;
};

} // namespace Vantor
