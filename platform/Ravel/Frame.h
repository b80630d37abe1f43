// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtWidgets/QFrame>

namespace Ravel {

/// \brief The client's frame: QFrame under a class name of its own, so that a theme can tell it
/// from Qt's ("Ravel--CFrame").
class VANTOR_PLATFORM_EXPORT CFrame : public QFrame
{
    Q_OBJECT

public:
    using QFrame::QFrame;
    ~CFrame() override;
};

} // namespace Ravel
