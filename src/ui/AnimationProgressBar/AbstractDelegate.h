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
/// mouse presses to them from the top: the first one that responds at the place gets the press, the
/// moves and the release through its event(). GUI thread only.
class VANTOR_EXPORT CAbstractDelegate : public QObject
{
    Q_OBJECT

public:
    /// \param type   a number of the host's own, to tell its delegates apart.
    /// \param parent owns the delegate; the bar it is put into does not.
    CAbstractDelegate(int type, QObject *parent);
    ~CAbstractDelegate() override;

    [[nodiscard]] int GetDelegateType() const;
    /// \brief The bar that paints this delegate; null while it is in no stack.
    [[nodiscard]] CAnimationProgressBar *AnimationProgressBar() const;

    /// \brief Forget all contents. The base has none.
    virtual void Clear();
    /// \brief For delegates that show pictures, what is needed to show those at the moment. The
    /// base has none, and the bar does not ask.
    [[nodiscard]] virtual QVariantList GetValidPixmapInfo();
    /// \brief The same for tips.
    [[nodiscard]] virtual QVariantList GetValidTipInfo();
    /// \brief For delegates that show pictures: the time line has moved, choose anew. The bar does
    /// not call it.
    virtual void UpdateValidPixmapInfo();

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    /// \brief Whether the delegate wants the mouse at \a pos of the bar. The base never does.
    virtual bool ShouldRespondAtPos(QPoint pos);
    /// \brief Paint in the coordinates of the bar. The base paints nothing.
    virtual void Paint(QPainter *painter);

private:
    friend class CAnimationProgressBar;

    const std::unique_ptr<CAbstractDelegateDataPtr> d_ptr_;
};

} // namespace Vantor
