// SPDX-License-Identifier: MIT
// What the examples of docs/login.md take from the host.
#pragma once

#include <Vantor/CAccountPasswordWidget>

struct CLoginPage : QWidget
{
    void OnLogIn();
    void Open();
    Vantor::CAccountPasswordWidget *form_ = nullptr;
};

struct CDirectory
{
    bool Knows(const std::string &name, const std::string &password) const;
};

inline CDirectory directory;

struct CGuide : CLoginPage
{
    template <int> void Example();
};
