// SPDX-License-Identifier: MIT
#include "ui/AccountPassword/LoginAttempt.h"

#include "common/Translate.h"

#include <ClientComm/RapidJsonProto.h>
#include <ErrorText/ErrorText.h>
#include <Nim/Base/TimeUnits.h>

#include <algorithm>
#include <iterator>

namespace Vantor {
namespace {

using Nim::Base::kSecondsPerMinute;

constexpr char kContext[] = "Vantor::CAccountPasswordWidget";
constexpr char kRemaining[] = "RemainingLEesrBBJA";
constexpr char kLockedSeconds[] = "Peltra.ee229a03a27748f2bb7b3e2a08484b6a.msg";
constexpr char kLockedMinutes[] = "Peltra.41c6a3785fc04331bd942f16e691f805.msg";

// Code words of the server's answers.
constexpr int kWithoutVerifyCode[] = {40850, 502};
constexpr int kWithTriesLeft[] = {40850, 310, 311, 214};
constexpr int kLocked[] = {41050, 262};
constexpr int kWrongVerifyCode[] = {311, 214};

template <size_t count> bool Holds(const int (&codes)[count], int code)
{
    return std::find(std::begin(codes), std::end(codes), code) != std::end(codes);
}

QString LockText(int seconds)
{
    if (seconds < kSecondsPerMinute)
        return FillArgument(Translate(QLatin1String(kLockedSeconds), kContext),
                            QString::number(seconds));
    QString text = Translate(QLatin1String(kLockedMinutes), kContext);
    if (!text.contains(QLatin1String("%1")) || !text.contains(QLatin1String("%2")))
        return text; // no translation: QString::arg() would warn
    return text.arg(QString::number(seconds / kSecondsPerMinute),
                    QString::number(seconds % kSecondsPerMinute));
}

} // namespace

Nim::Base::SecretText MakeLoginDocument(const LoginRequest &request)
{
    ClientComm::CRapidJsonProto document;
    document.SetString("/UserName", request.user_name);
    document.SetString("/PassWord", request.password);
    document.SetString("/VerifyCode", request.verify_code);
    document.SetString("/VerifyMark", request.verify_mark);
    document.SetString("/PluginName", request.plugin_name);
    document.SetString("/RequstGuid", request.guid);
    return document.ToJson();
}

LoginRequest ReadLoginDocument(const std::string &document)
{
    ClientComm::CRapidJsonProto reader;
    reader.Load(document);
    LoginRequest request;
    request.user_name = reader.GetString("/UserName");
    request.password = reader.GetString("/PassWord");
    request.verify_code = reader.GetString("/VerifyCode");
    request.verify_mark = reader.GetString("/VerifyMark");
    request.plugin_name = reader.GetString("/PluginName");
    request.guid = reader.GetString("/RequstGuid");
    return request;
}

bool NeedsVerifyCode(int error_code)
{
    return !Holds(kWithoutVerifyCode, error_code);
}

bool IsVerifyCodeWrong(int error_code)
{
    return Holds(kWrongVerifyCode, error_code);
}

QString LoginAnswerText(const ClientFramework::CheckPwdResultParam &result)
{
    QString text = ErrorText::GetErrorInfoByErrorCode(result.error_code);
    if (text.isEmpty() && result.check_result != kCheckPassed)
        text = Translate(QStringLiteral("TheCheckFailed"), kContext);
    const int code = result.error_code.error_code;
    if (Holds(kWithTriesLeft, code))
        text += FillArgument(Translate(QLatin1String(kRemaining), kContext),
                             QString::number(result.remain_count));
    if (Holds(kLocked, code))
        text += QLatin1Char(' ') + LockText(result.lock_remain_time);
    return text;
}

std::string MakeLoginResult(const std::string &error_text)
{
    ClientComm::CRapidJsonProto document;
    document.SetString("/ErrorInfo", error_text);
    return document.ToJson();
}

} // namespace Vantor
