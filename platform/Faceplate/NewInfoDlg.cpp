// SPDX-License-Identifier: MIT
#include "Faceplate/NewInfoDlg.h"

#include "Faceplate/InfoTip.h"
#include "Nim/Base/Replaceable.h"

#include <QtWidgets/QApplication>

namespace Faceplate {
namespace {

using CPresenter = Nim::Base::CReplaceable<void(const CStruInfoTipsData &)>;

void ShowTip(const CStruInfoTipsData &data)
{
    // A process without windows may use devices, too.
    if (!data.text.isEmpty() && qobject_cast<QApplication *>(QCoreApplication::instance()))
        (new CInfoTip(data, data.parent))->Appear(); // deletes itself when it closes
}

CPresenter &CurrentPresenter()
{
    static auto *const presenter = new CPresenter(&ShowTip);
    return *presenter;
}

} // namespace

void CNewInfoDlg::ShowInformationAtScreenRightBottom_V3(const CStruInfoTipsData &data)
{
    try {
        (*CurrentPresenter().Get())(data);
    } catch (...) { // a host's presenter may throw, which must not stop the caller
    }
}

void CNewInfoDlg::SetPresenter(Presenter presenter)
{
    CurrentPresenter().Set(std::move(presenter));
}

} // namespace Faceplate
