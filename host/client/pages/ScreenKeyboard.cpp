// SPDX-License-Identifier: MIT
#include "pages/ScreenKeyboard.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>

namespace Client {
namespace {

constexpr quint32 kUsbKeyboard = 1003;
constexpr quint32 kFound = 5001;
constexpr quint32 kGone = 5002;
constexpr quint32 kStop = 5209;
constexpr int kFullSpeed = 63;
constexpr int kFirstSpeed = 24;
constexpr int kColumns = 5;
constexpr int kKeyWidthPx = 32;

struct Key
{
    int row;
    int column;
    quint32 code;
    bool is_held;        // sends a stop when it is let go
    const char *caption; // a sign, or a text to translate
    const char *name;    // for accessibility and the tool tip
};

constexpr Key kKeys[] = {
    {0, 0, 5206, true, "↖", QT_TRANSLATE_NOOP("ScreenKeyboard", "Up and left")},
    {0, 1, 5201, true, "↑", QT_TRANSLATE_NOOP("ScreenKeyboard", "Up")},
    {0, 2, 5208, true, "↗", QT_TRANSLATE_NOOP("ScreenKeyboard", "Up and right")},
    {1, 0, 5203, true, "←", QT_TRANSLATE_NOOP("ScreenKeyboard", "Left")},
    {1, 1, 5102, false, "⇄",
     QT_TRANSLATE_NOOP("ScreenKeyboard", "Switch between camera and windows")},
    {1, 2, 5204, true, "→", QT_TRANSLATE_NOOP("ScreenKeyboard", "Right")},
    {2, 0, 5207, true, "↙", QT_TRANSLATE_NOOP("ScreenKeyboard", "Down and left")},
    {2, 1, 5202, true, "↓", QT_TRANSLATE_NOOP("ScreenKeyboard", "Down")},
    {2, 2, 5205, true, "↘", QT_TRANSLATE_NOOP("ScreenKeyboard", "Down and right")},
    {0, 3, 5210, true, "+", QT_TRANSLATE_NOOP("ScreenKeyboard", "Zoom in")},
    {1, 3, 5211, true, "−", QT_TRANSLATE_NOOP("ScreenKeyboard", "Zoom out")},
    {2, 3, 5101, false, "1", QT_TRANSLATE_NOOP("ScreenKeyboard", "Select the first window")},
};

} // namespace

bool CScreenKeyboardDriver::Init(KeyBoardCallBack callback, void *user_data)
{
    if (!KeyBoard_DefaultDriver().Init(callback, user_data))
        return false;
    callback_ = callback;
    user_data_ = user_data;
    return true;
}

void CScreenKeyboardDriver::Uninit()
{
    callback_ = nullptr;
    KeyBoard_DefaultDriver().Uninit();
}

bool CScreenKeyboardDriver::OpenSerialKeyBoard(quint32 id, const KeyBoardSerialParam &param)
{
    KeyBoardSerialParam chosen = param;
    chosen.baud_rate = quint32(baud_rate_);
    return KeyBoard_DefaultDriver().OpenSerialKeyBoard(id, chosen);
}

bool CScreenKeyboardDriver::CloseSerialKeyBoard(quint32 id)
{
    return KeyBoard_DefaultDriver().CloseSerialKeyBoard(id);
}

void CScreenKeyboardDriver::Send(quint32 code, quint32 second, quint32 third) const
{
    if (callback_)
        callback_(kUsbKeyboard, code, second, third, nullptr, nullptr, user_data_);
}

CScreenKeyboard::CScreenKeyboard(const CScreenKeyboardDriver &driver, QWidget *parent)
    : QWidget(parent), driver_(driver), speed_(new QSlider(Qt::Vertical, this)),
      plugged_in_(new QCheckBox(this))
{
    // Left stays left where text runs the other way: these are directions of a camera.
    setLayoutDirection(Qt::LeftToRight);
    setObjectName(QStringLiteral("ScreenKeyboard"));
    auto *const layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const Key &key : kKeys) {
        auto *const button = new QPushButton(this);
        button->setObjectName(QStringLiteral("ScreenKey%1").arg(key.code));
        button->setText(QString::fromUtf8(key.caption));
        button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
        button->setMinimumWidth(kKeyWidthPx);
        connect(button, &QPushButton::pressed, this, [this, key] {
            driver_.Send(key.code, key.is_held ? quint32(speed_->value()) : 1);
        });
        if (key.is_held)
            connect(button, &QPushButton::released, this, [this] { driver_.Send(kStop); });
        layout->addWidget(button, key.row, key.column);
        keys_.append(button);
    }
    speed_->setRange(1, kFullSpeed);
    speed_->setValue(kFirstSpeed);
    layout->addWidget(speed_, 0, kColumns - 1, 3, 1);
    plugged_in_->setObjectName(QStringLiteral("PluggedIn"));
    connect(plugged_in_, &QCheckBox::toggled, this,
            [this](bool is_in) { driver_.Send(is_in ? kFound : kGone); });
    layout->addWidget(plugged_in_, 3, 0, 1, kColumns);
    Retranslate();
}

// A key that is held is let go while the widgets are destroyed, when the driver is gone already.
CScreenKeyboard::~CScreenKeyboard()
{
    for (QPushButton *const key : qAsConst(keys_))
        key->disconnect(this);
}

void CScreenKeyboard::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
}

void CScreenKeyboard::Retranslate()
{
    for (int i = 0; i < keys_.size(); ++i) {
        const QString name = QCoreApplication::translate("ScreenKeyboard", kKeys[i].name);
        keys_[i]->setToolTip(name);
        keys_[i]->setAccessibleName(name);
    }
    plugged_in_->setText(tr("&Plugged in"));
    plugged_in_->setLayoutDirection(QGuiApplication::layoutDirection()); // a text, unlike the keys
    speed_->setToolTip(tr("Speed"));
    speed_->setAccessibleName(tr("Speed"));
}

} // namespace Client
