// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>
#include <Nim/Base/Error.h>
#include <Nim/Base/Record.h>

#include <string>

namespace ClientComm {

/// \brief A request to the server. Texts are UTF-8.
///
/// The body may hold a password: it is overwritten when the structure goes.
struct VANTOR_BASE_EXPORT ClientSendInfo
{
    std::string URL;          ///< path and query, such as "/Quorra/…/SecuritySetting"
    std::string Method;       ///< "GET", "PUT", "POST" or "DELETE"; each may have a body
    std::string Request_Data; ///< the body; may be empty
    int Pattern = 0;          ///< how the body is written: 2 is XML, anything else JSON

    ClientSendInfo() = default;                                       ///< All empty.
    ClientSendInfo(const ClientSendInfo &other) = default;            ///< Copies every field.
    ClientSendInfo &operator=(const ClientSendInfo &other) = default; ///< Copies every field.
    ~ClientSendInfo();
};

/// \brief The server's reply.
struct VANTOR_BASE_EXPORT ClientRecvInfo
{
    /// All 0 when the server has answered with success, whatever its answer says. See
    /// BusinessCommon::CNetCommManager for the codes.
    Nim::Base::Error::ErrorCode Error_code;
    std::string Receive_Data; ///< the body of the reply; may hold a session, so overwritten too

    ClientRecvInfo() = default;                                       ///< No error and no body.
    ClientRecvInfo(const ClientRecvInfo &other) = default;            ///< Copies every field.
    ClientRecvInfo &operator=(const ClientRecvInfo &other) = default; ///< Copies every field.
    ~ClientRecvInfo();
};

/// \brief A request, as hosts write it.
class VANTOR_BASE_EXPORT CClientSendInfo : public Nim::Base::CRecord<ClientSendInfo>
{
    VANTOR_RECORD(CClientSendInfo)
    VANTOR_RECORD_FIELD(URL)
    VANTOR_RECORD_FIELD(Method)
    VANTOR_RECORD_FIELD(Request_Data)
    VANTOR_RECORD_FIELD(Pattern)
};

/// \brief A reply, as hosts read it.
class VANTOR_BASE_EXPORT CClientRecvInfo : public Nim::Base::CRecord<ClientRecvInfo>
{
    VANTOR_RECORD(CClientRecvInfo)
    VANTOR_RECORD_FIELD(Error_code)
    VANTOR_RECORD_FIELD(Receive_Data)
};

} // namespace ClientComm
