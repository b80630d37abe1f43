// SPDX-License-Identifier: MIT
#pragma once

#include <ui/AnimationProgressBar/AbstractDelegate.h>
#include <ui/TimeBarDelegate/TimeBarParam.h>

#include <QtCore/QList>
#include <QtCore/QVector>

#include <memory>

QT_BEGIN_NAMESPACE
class QPointF;
QT_END_NAMESPACE

namespace Vantor {

struct CTimeBarDelegateDataPtr;

/// \brief Paints recorded periods as coloured bars on a time line.
///
/// Types are drawn in the order of InitTypes(), later ones over earlier ones. Where bars of one
/// type overlap, each pixel column is painted once: a bar that starts inside an earlier one is cut
/// to what lies beyond it. The main row fills the lower band with a faint picture of itself above;
/// in the two-row layout both rows are thinner. A bar is at least one pixel wide; one whose end
/// lies left of the line's left edge is skipped, so a period that has no end yet needs one in the
/// future.
///
/// Painting costs what is visible, also with a million bars. A delegate paints in one thread, the
/// GUI's.
class VANTOR_EXPORT CTimeBarDelegate : public CAbstractDelegate
{
    Q_OBJECT

public:
    /// Delegate type 0, no bars, no types, opacity 1, one row.
    explicit CTimeBarDelegate(QObject *parent);
    ~CTimeBarDelegate() override;

    /// \brief Add \a bars to the main row, which stays sorted by start; bars of equal start may
    /// change their order. The structures of the bars given belong to the row from then on: a
    /// change through GetDataPtr() does not reach the picture.
    void AppendTimeBar(const QVector<CTimeBarParam> &bars);
    /// \brief The same for the second row.
    void AppendSyncTimeBar(const QVector<CTimeBarParam> &bars);
    /// \brief The main row, sorted by start.
    [[nodiscard]] const QVector<CTimeBarParam> &GetTimeBar() const;
    /// \brief The second row, sorted by start.
    [[nodiscard]] const QVector<CTimeBarParam> &GetSyncTimeBar() const;

    /// \brief Draw these types in this order, all of them visible. A type that stands in the list
    /// twice is drawn twice.
    void InitTypes(const QList<int> &types);
    /// \brief The types of InitTypes().
    [[nodiscard]] QList<int> Types() const;
    /// \brief Show or hide a type; one that InitTypes() did not name is ignored.
    void SetTimeBarVisible(int type, bool visible);
    /// \return false for a type that InitTypes() did not name.
    [[nodiscard]] bool IsTimeBarVisible(int type) const;
    /// \brief Hide exactly the types of the list: those that are not in it are shown again.
    void SetUnvisibleTypes(const QList<int> &types);

    /// \brief The painter's opacity, 0 to 1, when painting begins.
    ///
    /// Each bar then sets the opacity of its own band, and a painter's opacity is absolute, so this
    /// one shows nowhere.
    void SetOpacity(float opacity);
    /// \brief Choose the layout with two rows.
    void SetSyncFlag(bool has_sync);
    [[nodiscard]] bool SyncFlag() const;

    /// \brief Empty both rows.
    void Clear() override;
    /// \brief Empty the main row, with \a alsoSync the second one too.
    virtual void Clear(bool alsoSync);
    void ClearSyncTimeBar();

    /// \brief The bar that is seen at \a pos of the owning time line.
    /// \return false, and \a bar as it was, when there is none.
    bool FindTimeBar(const QPointF &pos, CTimeBarParam &bar) const;
    /// \brief The nearest start of a visible bar of the main row before or after \a seconds.
    /// \return false when there is none.
    bool FindStart(qint64 seconds, bool is_after, qint64 &start_s) const;

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    bool ShouldRespondAtPos(QPoint pos) override;
    void Paint(QPainter *painter) override;

private:
    void Redraw();

    const std::unique_ptr<CTimeBarDelegateDataPtr> d_ptr_;
};

} // namespace Vantor
