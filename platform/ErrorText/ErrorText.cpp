// SPDX-License-Identifier: MIT
#include "ErrorText/ErrorText.h"

#include "BusinessCommon/NetCommManager.h"
#include "Nim/Base/Replaceable.h"

#include <QtCore/QCoreApplication>

namespace ErrorText {
namespace {

using Nim::Base::Error::ErrorCode;

constexpr int kAnyCode = -1;
constexpr int kModuleServer = 1; // the server defines the code

struct KnownError
{
    int module_code;
    int error_code;
    const char *text; // translated in the context "Vantor"
};

// The first row that matches gives the text.
constexpr KnownError kKnownErrors[] = {
    {kModuleServer, 40850, QT_TRANSLATE_NOOP("Vantor", "The user name or the password is wrong.")},
    {kModuleServer, 502, QT_TRANSLATE_NOOP("Vantor", "The user name or the password is wrong.")},
    {kModuleServer, 310, QT_TRANSLATE_NOOP("Vantor", "The user name or the password is wrong.")},
    {kModuleServer, 311, QT_TRANSLATE_NOOP("Vantor", "The verification code is wrong.")},
    {kModuleServer, 214, QT_TRANSLATE_NOOP("Vantor", "A verification code is needed.")},
    {kModuleServer, 41050, QT_TRANSLATE_NOOP("Vantor", "This user is locked.")},
    {kModuleServer, 262, QT_TRANSLATE_NOOP("Vantor", "This address is locked.")},
    {BusinessCommon::kModuleNetwork, BusinessCommon::kNetTimeout,
     QT_TRANSLATE_NOOP("Vantor", "The server does not answer.")},
    {BusinessCommon::kModuleNetwork, BusinessCommon::kNetConnect,
     QT_TRANSLATE_NOOP("Vantor", "The server cannot be reached.")},
    {BusinessCommon::kModuleNetwork, BusinessCommon::kNetTls,
     QT_TRANSLATE_NOOP("Vantor", "There is no secure connection to the server.")},
    {BusinessCommon::kModuleNetwork, BusinessCommon::kNetCertificate,
     QT_TRANSLATE_NOOP("Vantor", "The certificate of the server is not trusted.")},
    {BusinessCommon::kModuleNetwork, BusinessCommon::kNetBroken,
     QT_TRANSLATE_NOOP("Vantor", "The connection to the server broke.")},
    {BusinessCommon::kModuleNetwork, BusinessCommon::kNetTooLarge,
     QT_TRANSLATE_NOOP("Vantor", "The answer of the server is too large.")},
    {BusinessCommon::kModuleNetwork, BusinessCommon::kNetBadReply,
     QT_TRANSLATE_NOOP("Vantor", "The answer of the server makes no sense.")},
    {BusinessCommon::kModuleHttp, 401, QT_TRANSLATE_NOOP("Vantor", "You are not logged in.")},
    {BusinessCommon::kModuleHttp, 403, QT_TRANSLATE_NOOP("Vantor", "You may not do this.")},
    {BusinessCommon::kModuleHttp, 413,
     QT_TRANSLATE_NOOP("Vantor", "This is more than the server takes.")},
    {BusinessCommon::kModuleHttp, kAnyCode,
     QT_TRANSLATE_NOOP("Vantor", "The server refused the request.")},
};

QString PresetText(const ErrorCode &code)
{
    if (code == ErrorCode())
        return {};
    const QString numbers = QStringLiteral("(%1-%2)").arg(code.module_code).arg(code.error_code);
    for (const KnownError &known : kKnownErrors) {
        if (known.module_code == code.module_code
            && (known.error_code == code.error_code || known.error_code == kAnyCode))
            return QCoreApplication::translate("Vantor", known.text) + QLatin1Char(' ') + numbers;
    }
    return QCoreApplication::translate("Vantor", "Something went wrong.") + QLatin1Char(' ')
           + numbers;
}

using CSource = Nim::Base::CReplaceable<QString(const ErrorCode &)>;

CSource &CurrentSource()
{
    static auto *const source = new CSource(&PresetText);
    return *source;
}

} // namespace

QString GetErrorInfoByErrorCode(const ErrorCode &code)
{
    QString text;
    try {
        text = (*CurrentSource().Get())(code);
    } catch (...) { // a host's source may throw
    }
    return text.isEmpty() ? PresetText(code) : text;
}

void SetSource(Source source)
{
    CurrentSource().Set(std::move(source));
}

} // namespace ErrorText
