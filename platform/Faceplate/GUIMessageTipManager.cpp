// SPDX-License-Identifier: MIT
#include "Faceplate/GUIMessageTipManager.h"

#include "Faceplate/MessageTip.h"
#include "Nim/Base/Replaceable.h"

#include <QtWidgets/QApplication>

namespace Faceplate {
namespace {

using CPresenter = Nim::Base::CReplaceable<void(QWidget *, const QString &, int, int, int)>;

void ShowTip(QWidget *widget, const QString &text, int kind, int place, int time_s)
{
    QWidget *const owner = widget ? widget : QApplication::activeWindow();
    if (!owner)
        return;
    auto *tip = owner->findChild<CMessageTip *>(QString(), Qt::FindDirectChildrenOnly);
    if (text.isEmpty()) {
        if (tip)
            tip->hide();
        return;
    }
    if (!tip)
        tip = new CMessageTip(owner);
    tip->ShowText(text, kind, place, time_s);
}

CPresenter &CurrentPresenter()
{
    static auto *const presenter = new CPresenter(&ShowTip);
    return *presenter;
}

} // namespace

void CGUIMessageTipManager::ShowMessage(QWidget *widget, const QString &text, int kind, int place,
                                        int time_s)
{
    try {
        (*CurrentPresenter().Get())(widget, text, kind, place, time_s);
    } catch (...) { // a host's presenter may throw, which must not stop the caller
    }
}

void CGUIMessageTipManager::SetPresenter(Presenter presenter)
{
    CurrentPresenter().Set(std::move(presenter));
}

} // namespace Faceplate
