// SPDX-License-Identifier: MIT
#include "pages/PortForm.h"

#include <QtCore/QEvent>
#include <QtCore/QSignalBlocker>
#include <QtSerialPort/QSerialPortInfo>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>

namespace Client {
namespace {

constexpr int kBaudRates[] = {2400, 4800, 9600, 19200};
constexpr int kUsualBaudRate = 9600; // of control keyboards; cameras often have 2400
constexpr int kLastAddress = 255;
constexpr int kStateLines = 2;

} // namespace

CPortForm::CPortForm(Kind kind, QWidget *parent)
    : QGroupBox(parent), kind_(kind), target_label_(new QLabel(this)), target_(new QComboBox(this)),
      baud_rate_label_(new QLabel(this)), baud_rate_(new QComboBox(this)),
      address_label_(new QLabel(this)), address_(new QSpinBox(this)),
      connect_(new QPushButton(this)), state_(new QLabel(this))
{
    target_->setEditable(true);
    target_->setInsertPolicy(QComboBox::NoInsert);
    target_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    target_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    target_->installEventFilter(this);
    for (const int rate : kBaudRates)
        baud_rate_->addItem(QString::number(rate), rate);
    baud_rate_->setCurrentIndex(baud_rate_->findData(kUsualBaudRate));
    address_->setRange(1, kLastAddress);
    address_->setButtonSymbols(QAbstractSpinBox::NoButtons);
    address_->setAlignment(Qt::AlignCenter);
    connect_->setCheckable(true);
    state_->setWordWrap(true);
    // The widgets above must not move away under a finger.
    state_->setMinimumHeight(kStateLines * state_->fontMetrics().lineSpacing());
    state_->setAlignment(Qt::AlignTop | Qt::AlignLeading);
    state_->setObjectName(QStringLiteral("%1State").arg(
        kind_ == Kind::kCamera ? QStringLiteral("CameraPort") : QStringLiteral("KeyboardPort")));
    state_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    address_label_->setVisible(kind_ == Kind::kCamera);
    address_->setVisible(kind_ == Kind::kCamera);
    target_label_->setBuddy(target_);
    baud_rate_label_->setBuddy(baud_rate_);
    address_label_->setBuddy(address_);

    Arrange();
    connect(connect_, &QPushButton::clicked, this, &CPortForm::OnClicked);
    connect(target_->lineEdit(), &QLineEdit::returnPressed, connect_, [this] {
        if (!connect_->isChecked())
            connect_->click();
    });
    Retranslate();
}

void CPortForm::Arrange()
{
    auto *const layout = new QGridLayout(this);
    layout->addWidget(target_label_, 0, 0);
    layout->addWidget(target_, 0, 1, 1, 4);
    layout->addWidget(baud_rate_label_, 1, 0);
    layout->addWidget(baud_rate_, 1, 1);
    layout->addWidget(address_label_, 1, 2);
    layout->addWidget(address_, 1, 3);
    layout->addWidget(connect_, 1, 4);
    layout->addWidget(state_, 2, 0, 1, 5);
    layout->setColumnStretch(4, 1);
}

QString CPortForm::Target() const
{
    const QString text = target_->currentText().trimmed();
    const int index = target_->findText(text);
    return index < 0 ? text : target_->itemData(index).toString();
}

int CPortForm::BaudRate() const
{
    return baud_rate_->currentData().toInt();
}

quint8 CPortForm::CameraAddress() const
{
    return quint8(address_->value());
}

void CPortForm::SetState(bool is_connected, const QString &text)
{
    connect_->setChecked(is_connected);
    for (QWidget *const widget : std::initializer_list<QWidget *>{target_, baud_rate_, address_})
        widget->setEnabled(!is_connected);
    state_->setText(text);
    Retranslate();
}

void CPortForm::OnClicked(bool is_checked)
{
    // Until it is known how that ends; SetState() may come during the signal.
    SetState(is_checked, is_checked ? tr("Connecting …") : QString());
    if (is_checked)
        Q_EMIT SignalConnect();
    else
        Q_EMIT SignalDisconnect();
}

void CPortForm::FindPorts()
{
    const QString text = target_->currentText();
    const QSignalBlocker blocker(target_);
    target_->clear();
    const auto ports = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo &port : ports) {
        const QString what =
            port.description().isEmpty() ? port.manufacturer() : port.description();
        target_->addItem(what.isEmpty() ? port.systemLocation()
                                        : tr("%1 – %2").arg(port.systemLocation(), what),
                         port.systemLocation());
    }
    target_->setEditText(text);
}

bool CPortForm::eventFilter(QObject *watched, QEvent *event)
{
    // Before the list opens: ports come and go.
    const bool opens_list =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::FocusIn;
    if (watched == target_ && opens_list && target_->isEnabled())
        FindPorts();
    return QGroupBox::eventFilter(watched, event);
}

void CPortForm::showEvent(QShowEvent *event)
{
    QGroupBox::showEvent(event);
    if (target_->isEnabled())
        FindPorts();
}

void CPortForm::changeEvent(QEvent *event)
{
    QGroupBox::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
}

void CPortForm::Retranslate()
{
    const bool is_camera = kind_ == Kind::kCamera;
    setTitle(is_camera ? tr("Send on to a Pelco-D camera") : tr("Serial keyboard"));
    target_label_->setText(is_camera ? tr("&To") : tr("&Port"));
    target_->lineEdit()->setPlaceholderText(is_camera ? tr("Port, path or host:port")
                                                      : tr("Port or path"));
    target_->lineEdit()->setAccessibleName(target_label_->text().remove(QLatin1Char('&')));
    baud_rate_label_->setText(is_camera ? tr("Ba&ud") : tr("&Baud"));
    address_label_->setText(tr("Camera &address"));
    connect_->setText(connect_->isChecked() ? tr("Disconnect") : tr("Connect"));
    state_->setAccessibleName(title());
}

} // namespace Client
