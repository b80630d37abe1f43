// SPDX-License-Identifier: MIT
#include "WidgetCollection.h"

#include "WidgetPlugin.h"

#include <Vantor/CAccountPasswordWidget>
#include <Vantor/CAdaptiveColumnWidthWidget>
#include <Vantor/CAnimationProgressBar>
#include <Vantor/CBaseDockFrame>
#include <Vantor/CBaseFileProgressBar>
#include <Vantor/CComboBoxEx>
#include <Vantor/CCustomPasswordFrame>
#include <Vantor/CCustomizeColumnButton>
#include <Vantor/CCustomizeColumnWidget>
#include <Vantor/CFilterTreeViewEx>
#include <Vantor/CFilterWidgetEx>
#include <Vantor/CItemDragMovableListView>
#include <Vantor/CMutiPageWidget>
#include <Vantor/CMutiPageWidgetEx>
#include <Vantor/CPasswordFrame>
#include <Vantor/CPasswordLineEditNoInputMethod>
#include <Vantor/CVerifyCodeWidget>

namespace Vantor {
namespace {

constexpr char kTime[] = "Vantor: time lines";
constexpr char kLists[] = "Vantor: lists";
constexpr char kColumns[] = "Vantor: columns";
constexpr char kLogin[] = "Vantor: login";
constexpr char kPanels[] = "Vantor: panels";

} // namespace

template <class Widget> void CWidgetCollection::Add(const WidgetEntry &entry)
{
    widgets_.append(new CWidgetPlugin<Widget>(entry, this));
}

CWidgetCollection::CWidgetCollection(QObject *parent) : QObject(parent)
{
    Add<CAnimationProgressBar>({"CAnimationProgressBar", "AnimationProgressBar", kTime, "timeline",
                                "A ruler of times that slides under a fixed cursor line"});
    Add<CBaseFileProgressBar>({"CBaseFileProgressBar", "BaseFileProgressBar", kTime, "recordings",
                               "A time line of recordings"});
    Add<CFilterTreeViewEx>({"CFilterTreeViewEx", "FilterTreeViewEx", kLists, "list",
                            "A list that filters its rows and shows them page by page"});
    Add<CMutiPageWidget>(
        {"CMutiPageWidget", "MutiPageWidget", kLists, "pages", "A list with a paging bar"});
    Add<CMutiPageWidgetEx>({"CMutiPageWidgetEx", "MutiPageWidgetEx", kLists, "filtered-pages",
                            "A list with a paging bar and a filter bar"});
    Add<CFilterWidgetEx>({"CFilterWidgetEx", "FilterWidgetEx", kLists, "filter",
                          "A bar that asks for a keyword or for types"});
    Add<CComboBoxEx>({"CComboBoxEx", "ComboBoxEx", kLists, "ticks",
                      "A combo box with check boxes, whose rows are the texts of a column"});
    Add<CCustomizeColumnButton>({"CCustomizeColumnButton", "CustomizeColumnButton", kColumns,
                                 "column-button",
                                 "The button with which a user chooses the columns of a table"});
    Add<CCustomizeColumnWidget>(
        {"CCustomizeColumnWidget", "CustomizeColumnWidget", kColumns, "column-list",
         "The drop-down of the column button; a popup, which the host shows"});
    Add<CAdaptiveColumnWidthWidget>(
        {"CAdaptiveColumnWidthWidget", "AdaptiveColumnWidthWidget", kColumns, "column-width",
         "Two choices for the widths of columns; hidden until the host shows it"});
    Add<CItemDragMovableListView>({"CItemDragMovableListView", "ItemDragMovableListView", kColumns,
                                   "movable-list", "A list whose rows the user moves"});
    Add<CAccountPasswordWidget>({"CAccountPasswordWidget", "AccountPasswordWidget", kLogin, "login",
                                 "A form of user name, password and verification code"});
    Add<CPasswordFrame>({"CPasswordFrame", "PasswordFrameClass", kLogin, "password",
                         "The password entry of login pages"});
    Add<CCustomPasswordFrame>({"CCustomPasswordFrame", "PasswordFrameClass", kLogin,
                               "guarded-password",
                               "A password entry that cannot be copied while it is hidden"});
    Add<CPasswordLineEditNoInputMethod>({"CPasswordLineEditNoInputMethod",
                                         "PasswordLineEditNoInputMethod", kLogin, "password-edit",
                                         "A password edit without copy and cut"});
    Add<CVerifyCodeWidget>({"CVerifyCodeWidget", "VerifyCodeWidget", kLogin, "code",
                            "The image of a verification code and an entry for it"});
    Add<CBaseDockFrame>({"CBaseDockFrame", "BaseDockFrame", kPanels, "panel",
                         "A panel with a title, a content and buttons, for a dock"});
}

} // namespace Vantor
