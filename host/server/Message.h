// SPDX-License-Identifier: MIT
#pragma once

#include <Nim/Base/Encrypt.h>

#include <QtCore/QJsonObject>

#include <functional>
#include <stdexcept>
#include <string>
#include <utility>

namespace Server {

/// Module words of the errors in a reply.
constexpr int kModuleServer = 1; ///< the code is one of LoginCode
constexpr int kModuleHttp = 3;   ///< the code is the status of the reply

/// Statuses that the server answers with, of RFC 9110.
enum Status : int {
    kOk = 200,
    kBadRequest = 400,
    kUnauthorized = 401,
    kNotFound = 404,
    kWrongMethod = 405,
    kTooLarge = 413,
    kUriTooLong = 414,
    kHeadTooLarge = 431,
    kServerError = 500,
    kUnavailable = 503,
    kTookTooLong = 504,
};

/// \brief A request as it came in. Its texts may be secrets, so they are overwritten.
struct Request
{
    std::string method;
    std::string path;    ///< without the query
    std::string session; ///< the token, or empty
    std::string address; ///< of the client
    std::string network; ///< the same, but for IPv6 only its first 64 bits, which one site has
    std::string body;
    std::function<bool()> has_client_gone; ///< until the reply is there; may be empty

    Request() = default;
    Request(const Request &) = delete;
    Request &operator=(const Request &) = delete;
    ~Request()
    {
        Nim::Base::Encrypt::Wipe(body);
        Nim::Base::Encrypt::Wipe(session);
    }
};

/// \brief An answer: the words of the error, and the object at "/ResponseStatus/Data".
struct Reply
{
    int status = kOk;
    int module = 0;
    int code = 0;
    QJsonObject data;
    std::string text = {}; ///< why it is refused, for the author of a client; may be empty
    /// Answers later. It is called with a function that must be called once, on any thread, with a
    /// callable that returns the reply or throws. When it is set, the other members are ignored.
    std::function<void(std::function<void(const std::function<Reply()> &result)> done)> later = {};

    static Reply Refusal(int status, std::string text = {})
    {
        return {status, kModuleHttp, status, {}, std::move(text)};
    }
};

/// \brief Ends the handling of a request with its status; nothing is changed.
struct Refused : std::runtime_error
{
    explicit Refused(int with, const std::string &why = {}) : std::runtime_error(why), status(with)
    {}
    int status;
};

} // namespace Server
