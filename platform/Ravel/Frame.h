// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtWidgets/QFrame>

namespace Ravel {

/// \brief The client's frame: QFrame with its own class name for themes ("Ravel--CFrame").
class VANTOR_PLATFORM_EXPORT CFrame : public QFrame
{
    Q_OBJECT

public:
    using QFrame::QFrame;
    ~CFrame() override;
};

} // namespace Ravel
