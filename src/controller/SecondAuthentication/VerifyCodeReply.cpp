// SPDX-License-Identifier: MIT
#include "controller/SecondAuthentication/VerifyCodeReply.h"

#include "common/LogMacro.h"

#include <ClientComm/RapidJsonProto.h>
#include <Nim/Base/Encrypt.h>

#include <QtCore/QBuffer>
#include <QtCore/QtEndian>
#include <QtGui/QImageReader>

#include <cstring>

namespace Vantor {
namespace {

constexpr char kFunction[] = "Vantor::CVerifycodeRequestObj::GetCaptchaImgData";
constexpr char kDeclaration[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
constexpr int kEmptyReplySubSystem = 2;
constexpr int kEmptyReplyCode = 20;

bool IsWithin(QSize size, int maximum_side)
{
    return size.isValid() && size.width() <= maximum_side && size.height() <= maximum_side;
}

// Of a GIF, Qt reports the size of a frame, but it allocates the whole screen.
QSize ScreenOfGif(const QByteArray &data)
{
    constexpr int kScreenAt = 6; // width and height, two bytes each
    constexpr int kScreenEnd = 10;
    if (data.size() < kScreenEnd)
        return {};
    const char *const screen = data.constData() + kScreenAt;
    return {qFromLittleEndian<quint16>(screen), qFromLittleEndian<quint16>(screen + 2)};
}

// Of an icon, Qt reports the size in its directory, but a PNG in it may have any other.
bool ArePngsWithin(const QByteArray &data, int maximum_side)
{
    constexpr char kSignature[] = "\x89PNG\r\n\x1A\n";
    constexpr int kSizeAt = 16; // width and height, four bytes each
    constexpr int kSizeEnd = 24;
    for (int at = data.indexOf(kSignature); at >= 0; at = data.indexOf(kSignature, at + 1)) {
        if (data.size() - at < kSizeEnd)
            return false;
        const char *const size = data.constData() + at + kSizeAt;
        if (!IsWithin({qFromBigEndian<qint32>(size), qFromBigEndian<qint32>(size + 4)},
                      maximum_side))
            return false;
    }
    return true;
}

// Whether Qt allocates no more for the image in `data` than a size within the limit takes.
bool IsBounded(const QImageReader &reader, const QByteArray &data, int maximum_side)
{
    if (reader.format() == "gif" && !IsWithin(ScreenOfGif(data), maximum_side))
        return false;
    if (reader.format() == "ico" && !ArePngsWithin(data, maximum_side))
        return false;
    return IsWithin(reader.size(), maximum_side);
}

} // namespace

std::string MakeVerifyCodeRequest(const std::string &user_name)
{
    ClientComm::CRapidJsonProto document;
    document.SetString("/VerificationCodeImageRequest/UserName", user_name);
    document.SetString("/VerificationCodeImageRequest/Type", "0");
    std::string text = document.ToXml();
    const size_t declaration = text.find(kDeclaration);
    if (declaration == std::string::npos)
        return text;
    text.erase(0, declaration + std::strlen(kDeclaration));
    if (!text.empty())
        text.pop_back(); // the line feed
    return text;
}

bool ReadVerifyCodeReply(const std::string &reply,
                         NimClientFrameWork::CDaxCaptchaResponse &response)
{
    Nim::Base::Error::ErrorCode error = response.GetVal_stru_error_info();
    if (reply.empty()) {
        error.sub_system = kEmptyReplySubSystem;
        error.error_code = kEmptyReplyCode;
        response.SetVal_stru_error_info(error);
        VANTOR_LOG(kFunction, 5, VANTOR_LOG_WARNING, "xml Parse fail , recv_data = %s",
                   reply.c_str());
        return false;
    }
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK, "[DaxLogin::GetCaptchaImgData]recv_data = %s",
               reply.c_str());
    ClientComm::CRapidJsonProto document;
    document.Load(reply); // what cannot be read has no image
    error.module_code = document.GetInt("/ResponseStatus/ErrorModule", -1);
    error.error_code = document.GetInt("/ResponseStatus/ErrorCode", -1);
    response.SetVal_stru_error_info(error);
    response.SetVal_verify_mark(
        document.GetString("/ResponseStatus/Data/VerificationInfo/VerificationMark"));
    std::string image;
    const bool is_image = Nim::Base::Encrypt::Base64Decode(
        image, document.GetString("/ResponseStatus/Data/VerificationInfo/VerificationCodeImage"));
    response.SetVal_captcha_info(image);
    if (!is_image)
        VANTOR_LOG(kFunction, 5, VANTOR_LOG_WARNING, "Base64Decode failure");
    return is_image;
}

QImage DecodeVerifyCode(const std::string &bytes, int maximum_side)
{
    QByteArray data = QByteArray::fromRawData(bytes.data(), int(bytes.size()));
    QBuffer buffer(&data);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    if (!IsBounded(reader, data, maximum_side))
        return {};
    const QImage image = reader.read();
    return IsWithin(image.size(), maximum_side) ? image : QImage();
}

} // namespace Vantor
