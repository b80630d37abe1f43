// SPDX-License-Identifier: MIT
#pragma once

#include <ui/AnimationProgressBar/AbstractDelegate.h>
#include <ui/TimeBarDelegate/TimeBarParam.h>

#include <QtCore/QList>
#include <QtCore/QVector>

#include <memory>
#include <optional>

QT_BEGIN_NAMESPACE
class QPointF;
QT_END_NAMESPACE

namespace Vantor {

struct CTimeBarDelegateDataPtr;

/// \brief Paints recorded periods as coloured bars on a time line.
///
/// Types are drawn in the order of InitTypes(), later ones over earlier ones. Where bars of one
/// type overlap, each pixel column is painted once: a bar that starts inside an earlier one is cut
/// to the part beyond it. The main row fills the lower band, with a faint picture of itself above;
/// in the two-row layout both rows are thinner. A bar is at least one pixel wide. A bar whose end
/// is left of the line's left edge is skipped, so a recording that has no end yet needs an end in
/// the future.
///
/// The cost of painting depends on the visible bars, also with a million bars. GUI thread only.
class VANTOR_EXPORT CTimeBarDelegate : public CAbstractDelegate
{
    Q_OBJECT

public:
    /// Delegate type 0, no bars, no types, opacity 1, one row.
    explicit CTimeBarDelegate(QObject *parent);
    ~CTimeBarDelegate() override;

    /// \brief Add \a bars to the main row, which stays sorted by start; bars of equal start may
    /// change their order. The structures of \a bars belong to the row from then on: a change
    /// through GetDataPtr() does not reach the picture.
    void AppendTimeBar(const QVector<CTimeBarParam> &bars);
    /// \brief The same for the second row.
    void AppendSyncTimeBar(const QVector<CTimeBarParam> &bars);
    /// \brief The main row, sorted by start. The first call after a change costs a pass over the
    /// row; ask again after a change.
    [[nodiscard]] const QVector<CTimeBarParam> &GetTimeBar() const;
    /// \brief The same for the second row.
    [[nodiscard]] const QVector<CTimeBarParam> &GetSyncTimeBar() const;

    /// \brief Draw these types in this order, all of them visible. A type that is in the list twice
    /// is drawn twice.
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
    /// one is never visible.
    void SetOpacity(float opacity);
    /// \brief Choose the layout with two rows.
    void SetSyncFlag(bool has_sync);
    /// \brief Whether the layout has two rows; false at first.
    [[nodiscard]] bool SyncFlag() const;

    /// \brief Empty both rows.
    void Clear() override;
    /// \brief Empty the main row, with \a alsoSync the second one too.
    virtual void Clear(bool alsoSync);
    /// \brief Empty the second row.
    void ClearSyncTimeBar();

    /// \brief The bar that is visible at \a pos of the owning time line.
    [[nodiscard]] std::optional<CTimeBarParam> FindTimeBar(const QPointF &pos) const;
    /// \brief The bar of the main row that covers \a seconds, of the topmost visible type that has
    /// one. Unlike FindTimeBar() it does not depend on the scale: a bar of a second is painted a
    /// pixel wide.
    [[nodiscard]] std::optional<CTimeBarParam> FindTimeBarAt(qint64 seconds) const;
    /// \brief The nearest start of a visible bar of the main row before or after \a seconds.
    [[nodiscard]] std::optional<qint64> FindStart(qint64 seconds, bool is_after) const;

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
