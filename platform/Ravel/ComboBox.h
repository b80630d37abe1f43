// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtWidgets/QComboBox>

namespace Ravel {

/// \brief The client's base combo box ("Ravel--CComboBox" in a theme).
///
/// Its popup is a list on every platform. The wheel changes the value only while the box has the
/// focus, so scrolling a page over it changes nothing.
class VANTOR_PLATFORM_EXPORT CComboBox : public QComboBox
{
    Q_OBJECT

public:
    explicit CComboBox(QWidget *parent = nullptr);
    ~CComboBox() override;

protected:
    void wheelEvent(QWheelEvent *event) override;
};

} // namespace Ravel
