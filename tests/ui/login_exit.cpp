// SPDX-License-Identifier: MIT
// Ends while the back end still thinks about three passwords; tst_accountpassword starts it.
#include <ClientFramework/FrameworkManagerInterface.h>
#include <Vantor/CAccountPasswordWidget>

#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

#include <chrono>
#include <thread>

using Vantor::CAccountPasswordWidget;

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    ClientFramework::CFrameworkManagerInterface::SetBackend(
        [](const std::string &, const ClientFramework::CCheckPwdRequestParam &,
           ClientFramework::CCheckPwdResultParam &) {
            std::this_thread::sleep_for(std::chrono::minutes(5));
        });
    CAccountPasswordWidget form;
    form.findChild<QLineEdit *>(QStringLiteral("ptr_base_frame_lineedit"))
        ->setText(QStringLiteral("secret"));
    form.SetWaitOutTime(10);
    for (int i = 0; i < 3; ++i) {
        std::string result;
        if (form.LoginIn(result, "test") != CAccountPasswordWidget::kLoginTimeout)
            return 1;
    }
    return 0;
}
