// SPDX-License-Identifier: MIT
#include "pages/OuterScrollBar.h"

#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QLayout>

namespace Client {

COuterScrollBar::COuterScrollBar(QAbstractScrollArea &area)
    : QScrollBar(Qt::Horizontal, area.parentWidget()), inner_(area.horizontalScrollBar())
{
    setObjectName(QStringLiteral("OuterScrollBar"));
    area.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QSizePolicy policy = sizePolicy();
    policy.setRetainSizeWhenHidden(true); // or the list would get another height
    setSizePolicy(policy);
    area.parentWidget()->layout()->addWidget(this);
    connect(inner_, &QScrollBar::rangeChanged, this, &COuterScrollBar::Follow);
    connect(inner_, &QScrollBar::valueChanged, this, &QScrollBar::setValue);
    connect(this, &QScrollBar::valueChanged, inner_, &QScrollBar::setValue);
    Follow();
}

void COuterScrollBar::Follow()
{
    setSingleStep(inner_->singleStep());
    setPageStep(inner_->pageStep());
    setRange(inner_->minimum(), inner_->maximum());
    setValue(inner_->value());
    setVisible(inner_->maximum() > inner_->minimum());
}

} // namespace Client
