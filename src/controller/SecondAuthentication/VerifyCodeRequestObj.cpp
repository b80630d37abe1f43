// SPDX-License-Identifier: MIT
#include "controller/SecondAuthentication/VerifyCodeRequestObj.h"

#include "common/Guard.h"
#include "controller/SecondAuthentication/VerifyCodeReply.h"

#include <BusinessCommon/NetCommManager.h>

namespace Vantor {
namespace {

using namespace NimClientFrameWork;

constexpr char kUrl[] = "/Quorra/Brisent/Platform/V0/VerificationCodeImage";
constexpr int kXml = 2;

bool Exchange(const CDaxCaptchaInfo &info, CDaxCaptchaResponse &response)
{
    ClientComm::CClientSendInfo send;
    send.SetVal_URL(kUrl + std::string("?CT=") + std::to_string(int(info.Read().client_type)));
    send.SetVal_Method("GET");
    send.SetVal_Request_Data(MakeVerifyCodeRequest(info.Read().user_name));
    send.SetVal_Pattern(kXml);
    ClientComm::CClientRecvInfo recv;
    auto &manager = Nim::Base::CSingleton<BusinessCommon::CNetCommManager>::Instance();
    const bool is_sent = manager.ClientSynSend(recv, send, 0);
    const Nim::Base::Error::ErrorCode &error = recv.Read().Error_code;
    if (!is_sent || error.error_code != 0) {
        Nim::Base::Error::ErrorCode answered = response.GetVal_stru_error_info();
        answered.module_code = error.module_code;
        answered.error_code = error.error_code;
        response.SetVal_stru_error_info(answered);
        return false;
    }
    return ReadVerifyCodeReply(recv.Read().Receive_Data, response);
}

} // namespace

bool CVerifycodeRequestObj::RequestVerifyCode(const QString &user_name, CStruVerifyCode &code,
                                              ErrorText::CErrorCodeEvent &error)
{
    static constexpr char kFunction[] = "Vantor::CVerifycodeRequestObj::RequestVerifyCode";
    bool is_loaded = false;
    RunGuarded(kFunction, [&] {
        CDaxCaptchaInfo info;
        info.SetVal_user_name(user_name.toStdString());
        info.SetVal_client_type(kClientDesktop);
        CDaxCaptchaResponse response;
        if (!GetCaptchaImgData(info, response)) {
            VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK,
                       "Request verify code Request verify code failed.UserName = %s",
                       qUtf8Printable(user_name));
            error = ErrorText::CErrorCodeEvent(response.GetVal_stru_error_info());
            return;
        }
        code.SetVal_verify_code_mark_(QString::fromLocal8Bit(response.Read().verify_mark.c_str()));
        const QImage image = DecodeVerifyCode(response.Read().captcha_info, kMaximumSide);
        code.SetVal_pix_code_(QPixmap::fromImage(image));
        is_loaded = !image.isNull();
    });
    return is_loaded;
}

bool CVerifycodeRequestObj::GetCaptchaImgData(const CDaxCaptchaInfo &info,
                                              CDaxCaptchaResponse &response)
{
    bool is_answered = false;
    RunGuarded("Vantor::CVerifycodeRequestObj::GetCaptchaImgData",
               [&] { is_answered = Exchange(info, response); });
    return is_answered;
}

} // namespace Vantor
