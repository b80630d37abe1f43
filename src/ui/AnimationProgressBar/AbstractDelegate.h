// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QObject>
#include <QtCore/QPoint>
#include <QtCore/QVariant>

#include <memory>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace Vantor {

class CAnimationProgressBar;
struct CAbstractDelegateDataPtr;

/// \brief One layer of what a CAnimationProgressBar shows.
///
/// The bar paints its delegates in the order of its stack, the first at the bottom, and offers
/// mouse presses to them from the top: the first one that responds at the position gets the press,
/// the moves and the release through its event(). A deleted delegate leaves its bar. A delegate
/// whose contents change calls CAnimationProgressBar::UpdateContents(). GUI thread only.
class VANTOR_EXPORT CAbstractDelegate : public QObject
{
    Q_OBJECT

public:
    /// \param type   a number that the host chooses to distinguish its delegates.
    /// \param parent owns the delegate; the bar does not.
    CAbstractDelegate(int type, QObject *parent);
    ~CAbstractDelegate() override;

    /// \brief The number given to the constructor.
    [[nodiscard]] int GetDelegateType() const;
    /// \brief The bar that paints this delegate; null while it is in no stack.
    [[nodiscard]] CAnimationProgressBar *AnimationProgressBar() const;

    /// \brief Forget all contents. The base does nothing.
    virtual void Clear();
    /// \brief For delegates that show pictures: the data that the visible pictures need. The base
    /// returns an empty list, and the bar does not call it.
    [[nodiscard]] virtual QVariantList GetValidPixmapInfo();
    /// \brief The same for tips.
    [[nodiscard]] virtual QVariantList GetValidTipInfo();
    /// \brief For delegates that show pictures: choose the visible ones again because the time line
    /// has moved. The bar does not call it.
    virtual void UpdateValidPixmapInfo();

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    /// \brief Whether the delegate wants the mouse at \a pos of the bar. The base never does.
    virtual bool ShouldRespondAtPos(QPoint pos);
    /// \brief Paint in the coordinates of the bar. The bar saves and restores the painter around
    /// the call. The base paints nothing.
    virtual void Paint(QPainter *painter);

private:
    friend class CAnimationProgressBar;

    const std::unique_ptr<CAbstractDelegateDataPtr> d_ptr_;
};

} // namespace Vantor
