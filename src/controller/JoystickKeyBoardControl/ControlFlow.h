// SPDX-License-Identifier: MIT
#pragma once

#include "controller/JoystickKeyBoardControl/ControlDevice.h"

#include <functional>

QT_BEGIN_NAMESPACE
class QObject;
QT_END_NAMESPACE

namespace Vantor {

class CControlHost;

/// \brief The way of a device's codes to its manager's signal, which is the same for each manager.
///
/// Slots, and presenters of pop-ups, may delete the manager, and the flow with it: nothing of
/// either is touched after such a call unless the manager is still alive.
class CControlFlow
{
public:
    /// Logs a command and emits the manager's signal.
    using Send = std::function<void(const ControlCommand &command)>;

    /// \param manager    owns the flow.
    /// \param class_name of the manager, with its namespace: for logs and translations.
    /// \param table      must outlive the flow.
    CControlFlow(QObject *manager, const char *class_name, const ControlTable &table, Send send);

    /// \param host null when the coordinator ends; a manager without one works too.
    void SetHost(CControlHost *host) { host_ = host; }
    [[nodiscard]] CControlHost *Host() const { return host_; }
    [[nodiscard]] CControlDevice &Device() { return device_; }
    [[nodiscard]] const CControlDevice &Device() const { return device_; }

    /// \brief Translate \a input and emit it, or switch the mode.
    void Take(const ControlInput &input, const CControlDevice::Translate &translate = {});

    /// \brief Where the host wants every stop, stop what runs.
    /// \return false when a slot deleted the manager.
    bool StopAll();

    /// \brief Show a pop-up at the lower right of the screen, beside the host's tip parent.
    /// \param key      of the text.
    /// \param is_found a device was found: the pop-up's information type is 7.
    /// \return false when the presenter deleted the manager.
    bool ShowTip(const char *key, bool is_found = false);

private:
    bool Emit(const ControlCommand &command);
    void ToggleMode();
    [[nodiscard]] bool AlwaysSendsStops() const;

    QObject *const manager_;
    const char *const class_name_;
    const Send send_;
    CControlHost *host_ = nullptr;
    CControlDevice device_;
};

/// \brief The host's function \a translate for CControlDevice, which knows keys as numbers.
template <class KeyType>
[[nodiscard]] CControlDevice::Translate
TranslateKeys(KeyboradData::KeyOperation::Type (*translate)(KeyType))
{
    if (!translate)
        return {};
    return [translate](quint32 key) { return translate(static_cast<KeyType>(key)); };
}

} // namespace Vantor
