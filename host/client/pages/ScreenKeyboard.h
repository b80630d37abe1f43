// SPDX-License-Identifier: MIT
#pragma once

#include <KeyBoard/KeyBoard.h>

#include <QtWidgets/QWidget>

#include <atomic>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QSlider;
class QPushButton;
QT_END_NAMESPACE

namespace Client {

/// \brief The default driver with one device more: a USB keyboard whose keys are pressed by calls.
class CScreenKeyboardDriver : public KeyBoardDriver
{
public:
    bool Init(KeyBoardCallBack callback, void *user_data) override;
    void Uninit() override;
    bool OpenSerialKeyBoard(quint32 id, const KeyBoardSerialParam &param) override;
    bool CloseSerialKeyBoard(quint32 id) override;

    /// \brief Open serial ports at \a rate instead of the 9600 baud that the managers ask for.
    void SetBaudRate(int rate) { baud_rate_ = rate; }

    /// \brief As if the keyboard had sent these. GUI thread.
    void Send(quint32 code, quint32 second = 0, quint32 third = 0) const;

private:
    KeyBoardCallBack callback_ = nullptr;
    void *user_data_ = nullptr;
    int baud_rate_ = 9600;
};

/// \brief The keys of a USB control keyboard, on the screen.
class CScreenKeyboard : public QWidget
{
    Q_OBJECT

public:
    /// \param driver must outlive the widget.
    CScreenKeyboard(const CScreenKeyboardDriver &driver, QWidget *parent = nullptr);
    ~CScreenKeyboard() override;

protected:
    void changeEvent(QEvent *event) override;

private:
    void Retranslate();

    const CScreenKeyboardDriver &driver_;
    QList<QPushButton *> keys_;
    QSlider *const speed_;
    QCheckBox *const plugged_in_;
};

} // namespace Client
