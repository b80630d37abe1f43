// SPDX-License-Identifier: MIT
#include "pages/ColoursPage.h"

#include <Vantor/CStyleManager>

#include <QtCore/QMetaProperty>
#include <QtGui/QPainter>

namespace Client {
namespace {

constexpr int kColumns = 4;
constexpr int kMarginPx = 24;
constexpr int kGapPx = 16;
constexpr int kLargestHeightPx = 180;
constexpr int kRadiusPx = 8;

// The place of swatch `index` of `count` in an area of `size`.
QRect SwatchAt(int index, int count, QSize size, Qt::LayoutDirection direction)
{
    const int rows = (count + kColumns - 1) / kColumns;
    const int width = (size.width() - 2 * kMarginPx - (kColumns - 1) * kGapPx) / kColumns;
    const int height =
        qMin(kLargestHeightPx, (size.height() - 2 * kMarginPx - (rows - 1) * kGapPx) / rows);
    const QRect place(kMarginPx + index % kColumns * (width + kGapPx),
                      kMarginPx + index / kColumns * (height + kGapPx), width, height);
    if (direction == Qt::LeftToRight)
        return place;
    return {size.width() - place.right() - 1, place.top(), width, height};
}

QString Caption(const QMetaProperty &property, const Vantor::CStyleManager &manager)
{
    return QLatin1String(property.name()) + QStringLiteral("  ")
           + property.read(&manager).value<QColor>().name().toUpper();
}

} // namespace

CColoursPage::CColoursPage(QWidget *parent) : CPage(parent)
{
    setMinimumHeight(3 * kMarginPx * kColumns);
}

void CColoursPage::OnThemeChanged()
{
    update();
}

QString CColoursPage::Text() const
{
    const Vantor::CStyleManager &manager = Nim::Base::CSingleton<Vantor::CStyleManager>::Instance();
    const QMetaObject &meta = Vantor::CStyleManager::staticMetaObject;
    QStringList captions;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i)
        captions.append(Caption(meta.property(i), manager));
    return captions.join(QStringLiteral(", "));
}

void CColoursPage::paintEvent(QPaintEvent * /*event*/)
{
    const Vantor::CStyleManager &manager = Nim::Base::CSingleton<Vantor::CStyleManager>::Instance();
    const QMetaObject &meta = Vantor::CStyleManager::staticMetaObject;
    const int first = meta.propertyOffset();
    const int count = meta.propertyCount() - first;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int text_height = painter.fontMetrics().height();
    for (int i = 0; i < count; ++i) {
        const QMetaProperty property = meta.property(first + i);
        const auto colour = property.read(&manager).value<QColor>();
        QRect place = SwatchAt(i, count, size(), layoutDirection());
        const QRect caption = place.adjusted(0, place.height() - text_height, 0, 0);
        place.setBottom(caption.top() - kGapPx / 2);
        painter.setPen(manager.NeuColor());
        painter.setBrush(colour);
        painter.drawRoundedRect(place, kRadiusPx, kRadiusPx);
        painter.setPen(manager.TextNeuColor());
        painter.drawText(caption, Qt::AlignCenter | Qt::TextSingleLine,
                         painter.fontMetrics().elidedText(Caption(property, manager),
                                                          Qt::ElideRight, caption.width()));
    }
}

} // namespace Client
