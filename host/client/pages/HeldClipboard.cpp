// SPDX-License-Identifier: MIT
#include "pages/HeldClipboard.h"

#include <QtCore/QStringList>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>

namespace Client {
namespace {

std::unique_ptr<QMimeData> Take(QClipboard::Mode mode)
{
    QClipboard *const clipboard = QGuiApplication::clipboard();
    const bool is_ours =
        mode == QClipboard::Clipboard ? clipboard->ownsClipboard() : clipboard->ownsSelection();
    const QMimeData *const data = is_ours ? clipboard->mimeData(mode) : nullptr;
    if (!data)
        return nullptr;
    auto copy = std::make_unique<QMimeData>();
    const QStringList formats = data->formats();
    for (const QString &format : formats)
        copy->setData(format, data->data(format));
    clipboard->clear(mode);
    return copy;
}

void Give(QClipboard::Mode mode, std::unique_ptr<QMimeData> data)
{
    QClipboard *const clipboard = QGuiApplication::clipboard();
    const QMimeData *const now = clipboard->mimeData(mode);
    if (data && (!now || now->formats().isEmpty()))
        clipboard->setMimeData(data.release(), mode); // which takes it over
}

} // namespace

CHeldClipboard::CHeldClipboard()
    : clipboard_(Take(QClipboard::Clipboard)), selection_(Take(QClipboard::Selection))
{}

void CHeldClipboard::GiveBack()
{
    Give(QClipboard::Clipboard, std::move(clipboard_));
    Give(QClipboard::Selection, std::move(selection_));
}

} // namespace Client
