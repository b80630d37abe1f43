// SPDX-License-Identifier: MIT
#pragma once

#include "common/Record.h"

#include <VantorExport.h>

#include <QtCore/QString>
#include <QtGui/QPixmap>

namespace Vantor {

/// \brief A verification code. It holds a pixmap, so all of it is for the GUI thread.
struct StruVerifyCode
{
    QString verify_code_mark_; ///< the server's mark of this image
    QPixmap pix_code_;         ///< the image; may be null
    QString code_text_;        ///< what the user typed
};

/// \brief A StruVerifyCode as a record.
class VANTOR_EXPORT CStruVerifyCode : public CRecord<StruVerifyCode>
{
    VANTOR_RECORD(CStruVerifyCode)
    VANTOR_RECORD_FIELD(verify_code_mark_)
    VANTOR_RECORD_FIELD(pix_code_)
    VANTOR_RECORD_FIELD(code_text_)
};

} // namespace Vantor
