// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>
#include <Nim/Base/Record.h>

#include <string>

namespace BusinessCommon {

/// \brief A layout text that the server keeps for the user who is logged in. Texts are UTF-8.
struct AdaptiveLayout
{
    std::string key_value;   ///< the name under which it is kept
    int type_value = 0;      ///< kind of layout; 1: a list of columns
    std::string layout_data; ///< the text; empty in a request that reads it
};

/// \brief What the server has kept.
struct AdaptiveLayoutResponse
{
    std::string receive_data; ///< the stored layout text, UTF-8; may be empty
};

/// \brief An AdaptiveLayout as a record.
class VANTOR_BASE_EXPORT CAdaptiveLayout : public Nim::Base::CRecord<AdaptiveLayout>
{
    VANTOR_RECORD(CAdaptiveLayout)
    VANTOR_RECORD_FIELD(key_value)
    VANTOR_RECORD_FIELD(type_value)
    VANTOR_RECORD_FIELD(layout_data)
};

} // namespace BusinessCommon
