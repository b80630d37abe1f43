// SPDX-License-Identifier: MIT
// Names are interface, misspelt or not: hosts compile against every one of them. Whatever is
// renamed fails here.
#include <BusinessCommon/AdaptiveColumnWidthManager.h>
#include <BusinessCommon/NetCommManager.h>
#include <ClientComm/RapidJsonProto.h>
#include <ErrorText/ErrorText.h>
#include <Faceplate/GUIFullScreenWidget.h>
#include <Faceplate/GUIMessageTipManager.h>
#include <Faceplate/NewInfoDlg.h>
#include <Lookout/BaseWidget.h>
#include <Nim/Base/Encrypt.h>
#include <Nim/Base/Error.h>
#include <Nim/Base/FileSystem.h>
#include <Nim/Base/MonitorDriveUtil.h>
#include <Ravel/ChaseDialog.h>
#include <Ravel/MultiPairData.h>
#include <Ravel/ObjectSingleton.h>
#include <Ravel/TextCodec.h>
#include <Ravel/WaitWatcher.h>
#include <Vantor/CAccountPasswordWidget>
#include <Vantor/CAdaptiveColumnWidthController>
#include <Vantor/CAdaptiveColumnWidthWidget>
#include <Vantor/CAnimationProgressBar>
#include <Vantor/CBaseDockFrame>
#include <Vantor/CBaseFileProgressBar>
#include <Vantor/CCSVParser>
#include <Vantor/CComboBoxEx>
#include <Vantor/CComboBoxModel>
#include <Vantor/CCopyFileThread>
#include <Vantor/CCustomEvent>
#include <Vantor/CCustomListItemDelegate>
#include <Vantor/CCustomPasswordFrame>
#include <Vantor/CCustomizeColumnButton>
#include <Vantor/CCustomizeColumnWidget>
#include <Vantor/CDockManager>
#include <Vantor/CDockWidget>
#include <Vantor/CDockWidgetPosRule>
#include <Vantor/CEventTransMgr>
#include <Vantor/CExcelControllorWithC>
#include <Vantor/CFilterProxyModelEx>
#include <Vantor/CFilterTreeViewEx>
#include <Vantor/CFilterWidgetEx>
#include <Vantor/CItemDragMovableListView>
#include <Vantor/CJoystickKeyboardControlManager>
#include <Vantor/CJoystickKeyboardEvent>
#include <Vantor/CListSightCheckModel>
#include <Vantor/CMutiPageWidget>
#include <Vantor/CMutiPageWidgetEx>
#include <Vantor/CPasswordFrame>
#include <Vantor/CPasswordLineEditNoInputMethod>
#include <Vantor/CScreenStateManager>
#include <Vantor/CStyleManager>
#include <Vantor/CTimeBarDelegate>
#include <Vantor/CUSBJoystickControlManager>
#include <Vantor/CUpdateEvent>
#include <Vantor/CVerifyCodeWidget>
#include <Vantor/CVerifycodeRequestObj>
#include <Vantor/CZellSerialKeyboardControlManager>
#include <Vantor/CZellUSBKeyboardControlManager>
#include <Vantor/TimeSliderFile>

#include <QtTest/QTest>

#include <functional>
#include <type_traits>

namespace {

using Parser = Vantor::CCSVParser;
using CopyThread = Vantor::CCopyFileThread;
using Manager = Vantor::CStyleManager;
using Excel = Vantor::CExcelControllorWithC;
using Look = std::shared_ptr<Vantor::Clxw_format_>;
using ImageOptions = std::shared_ptr<Vantor::Clxw_image_options_>;
using Text = std::string;

template <class Expected, class Actual> constexpr bool IsSame(Actual)
{
    return std::is_same<Expected, Actual>::value;
}

static_assert(IsSame<bool (Parser::*)(const QString &)>(&Parser::OpenFile));
static_assert(IsSame<bool (Parser::*)(const QString &)>(&Parser::OpenFileWithAppendMode));
static_assert(IsSame<void (Parser::*)(QAbstractItemModel *)>(&Parser::PrepareSourceData));
static_assert(IsSame<void (Parser::*)(QStringList)>(&Parser::AppendLine));
static_assert(IsSame<void (Parser::*)(QStringList)>(&Parser::AppendLineWithoutCheckSpecChar));
static_assert(IsSame<void (Parser::*)()>(&Parser::WriteCSVFile));
static_assert(IsSame<void (Parser::*)()>(&Parser::WriteCSVFileWithChase));
static_assert(IsSame<void (Parser::*)(QString &, const QString &)>(&Parser::ReadOneline));
static_assert(IsSame<void (Parser::*)()>(&Parser::CloseFile));
static_assert(IsSame<void (Parser::*)()>(&Parser::SignalWriteOver));
static_assert(IsSame<QString (*)()>(&Vantor::GetLocalListSperator));
static_assert(std::is_constructible<Parser, QWidget *>::value);

static_assert(IsSame<void (CopyThread::*)(const QStringList &, const QStringList &, bool)>(
    &CopyThread::SetFileInfo));
static_assert(std::is_base_of<QThread, CopyThread>::value);
static_assert(std::is_default_constructible<CopyThread>::value);

using EventManager = Vantor::CEventTransMgr;
static_assert(IsSame<bool (EventManager::*)(QEvent *)>(&EventManager::SendCustomEvent));
static_assert(IsSame<void (EventManager::*)(QEvent *)>(&EventManager::PostCustomEvent));
static_assert(std::is_base_of<Ravel::CMultiPairData, Vantor::CCustomEvent>::value);
static_assert(std::is_base_of<QEvent, Vantor::CUpdateEvent>::value);
using Screens = Vantor::CScreenStateManager;
using Displays = std::vector<Nim::Base::MonitorDriveUtil::DeviceInfoStru>;
static_assert(IsSame<void (Screens::*)(bool, void *, void *)>(&Screens::SetCallBack));
static_assert(IsSame<void (Screens::*)(Displays)>(&Screens::UpdateScreenParam));

using Pages = Vantor::CMutiPageWidget;
using FilteredPages = Vantor::CMutiPageWidgetEx;
using FilterBar = Vantor::CFilterWidgetEx;
using FilterProxy = Vantor::CFilterProxyModelEx;
using FilterTree = Vantor::CFilterTreeViewEx;
using TypeBox = Vantor::CComboBoxEx;
using Lists = std::vector<QStringList>;

static_assert(IsSame<void (Pages::*)()>(&Pages::SignalPageChanged));
static_assert(IsSame<void (Pages::*)()>(&Pages::SignalBatchConfirm));
static_assert(IsSame<void (Pages::*)(const QString &)>(&Pages::SignalErrorInfo));
static_assert(IsSame<void (Pages::*)(int, int)>(&Pages::OnUpdatePageInfo));
static_assert(IsSame<void (Pages::*)(int)>(&Pages::OnItemPerPageChanged));
static_assert(IsSame<void (Pages::*)(bool, bool)>(&Pages::OnUpdateMaxMinPage));
static_assert(IsSame<QComboBox *(Pages::*)() const>(&Pages::GetItemPerPageComboBox));
static_assert(IsSame<Vantor::CFilterTreeViewEx *(Pages::*)() const>(&Pages::GetTreeView));
static_assert(IsSame<QPushButton *(Pages::*)()>(&Pages::GetNextPageBtn));
static_assert(IsSame<void (Pages::*)()>(&Pages::HideTotalPageWidget));
static_assert(IsSame<void (Pages::*)(bool)>(&Pages::SetPageSeen));
static_assert(IsSame<void (Pages::*)(const int &)>(&Pages::SetCustomColumnFixedWidth));
static_assert(IsSame<void (Pages::*)(bool)>(&Pages::SetConfirmBtnVisible));
static_assert(IsSame<void (Pages::*)(bool)>(&Pages::SetBatchAlarmsConfirmEnable));
static_assert(IsSame<void (Pages::*)(bool)>(&Pages::SetRecordsVisible));
static_assert(IsSame<void (Pages::*)(bool)>(&Pages::SetTotalAndComboBoxVisible));
static_assert(IsSame<void (Pages::*)()>(&Pages::HideBottomPageWidget));
static_assert(IsSame<void (Pages::*)(bool)>(&Pages::SetJumpFuncVisible));
static_assert(IsSame<void (Pages::*)(Ravel::CTreeViewModel *)>(&Pages::SetModel));
static_assert(IsSame<void (Pages::*)()>(&Pages::ClearAllItems));
static_assert(IsSame<void (Pages::*)()>(&Pages::InitTreeView));
static_assert(IsSame<void (Pages::*)()>(&Pages::InitPageInfo));
static_assert(IsSame<void (Pages::*)(QList<Ravel::CTreeViewItem *> &)>(&Pages::AddTopLevelItems));
static_assert(IsSame<int (Pages::*)()>(&Pages::TopLevelItemCount));
static_assert(IsSame<QAbstractItemModel *(Pages::*)()>(&Pages::GetBackupModel));
static_assert(IsSame<int (Pages::*)()>(&Pages::GetItemsPerPage));
static_assert(IsSame<void (Pages::*)(bool)>(&Pages::SetFilterEnabled));
static_assert(IsSame<int (Pages::*)()>(&Pages::GetCurrentPage));
static_assert(IsSame<QList<QModelIndex> (Pages::*)() const>(&Pages::GetSelectedRows));
static_assert(IsSame<void (Pages::*)(const QModelIndex &)>(&Pages::SetCurrentIndex));
static_assert(IsSame<void (Pages::*)(int)>(&Pages::MoveFromTheCurrentRow));
static_assert(IsSame<void (Pages::*)(const QString &)>(&Pages::SetFilterKeyWord));
static_assert(IsSame<void (Pages::*)(Lists &)>(&Pages::SetFilterKeyWords));

static_assert(IsSame<void (FilteredPages::*)()>(&FilteredPages::SignalPageChanged));
static_assert(IsSame<void (FilteredPages::*)()>(&FilteredPages::SignalMoreBtnClicked));
static_assert(IsSame<void (FilteredPages::*)()>(&FilteredPages::SignalFilterWithKeyWords));
static_assert(IsSame<void (FilteredPages::*)()>(&FilteredPages::SignalClearFilter));
static_assert(IsSame<void (FilteredPages::*)()>(&FilteredPages::OnShowHideBtnClicked));
static_assert(
    IsSame<void (FilteredPages::*)(const QString &)>(&FilteredPages::OnFilterWithKeyWord));
static_assert(IsSame<void (FilteredPages::*)(Lists &)>(&FilteredPages::OnFilterWithKeyWords));
static_assert(IsSame<void (FilteredPages::*)(bool)>(&FilteredPages::SetFilterWidgetShow));
static_assert(IsSame<bool (FilteredPages::*)() const>(&FilteredPages::IsFilterWidgetShow));
static_assert(IsSame<QAbstractItemModel *(FilteredPages::*)()>(&FilteredPages::GetBackupModel));

static_assert(IsSame<void (FilterProxy::*)(QString)>(&FilterProxy::SetPageFilter));
static_assert(IsSame<void (FilterProxy::*)(QString)>(&FilterProxy::SetKeyWordFilter));
static_assert(IsSame<void (FilterProxy::*)(const std::vector<QStringList> &)>(
    &FilterProxy::SetKeyWordsFilter));
static_assert(IsSame<void (FilterProxy::*)()>(&FilterProxy::DoFilter));

using Items = QList<Ravel::CTreeViewItem *>;
static_assert(IsSame<void (FilterTree::*)(Ravel::CTreeViewModel *)>(&FilterTree::SetModel));
static_assert(IsSame<void (FilterTree::*)(Items &)>(&FilterTree::AddTopLevelItems));
static_assert(IsSame<void (FilterTree::*)()>(&FilterTree::ClearAllItems));
static_assert(IsSame<int (FilterTree::*)() const>(&FilterTree::TopLevelItemCount));
static_assert(IsSame<FilterProxy *(FilterTree::*)() const>(&FilterTree::GetBackupModel));
static_assert(IsSame<int (FilterTree::*)() const>(&FilterTree::GetItemsPerPage));
static_assert(IsSame<void (FilterTree::*)(bool)>(&FilterTree::SetFilterEnabled));
static_assert(IsSame<void (FilterTree::*)(int)>(&FilterTree::SetSortRole));
static_assert(IsSame<void (FilterTree::*)(int)>(&FilterTree::SetFilterPage));
static_assert(IsSame<void (FilterTree::*)(const QString &)>(&FilterTree::SetFilterKeyWord));
static_assert(
    IsSame<void (FilterTree::*)(std::vector<QStringList> &)>(&FilterTree::SetFilterKeyWords));
static_assert(IsSame<void (FilterTree::*)(int)>(&FilterTree::SetTreeViewItemPerPage));
static_assert(
    IsSame<QModelIndex (FilterTree::*)(const QModelIndex &) const>(&FilterTree::MapToSourceIndex));
static_assert(IsSame<QModelIndex (FilterTree::*)(const QModelIndex &) const>(
    &FilterTree::MapFromSourceIndex));
static_assert(IsSame<void (FilterTree::*)(int, int)>(&FilterTree::SignalPageReset));
static_assert(IsSame<void (FilterTree::*)(bool, bool)>(&FilterTree::SignalUpdateMaxMinPage));
static_assert(IsSame<void (FilterTree::*)()>(&FilterTree::SignalSizeChanged));
static_assert(IsSame<void (FilterTree::*)()>(&FilterTree::SignalDataSort));
static_assert(
    IsSame<void (FilterTree::*)(int, Qt::SortOrder)>(&FilterTree::OnSortIndicatorChanged));

static_assert(IsSame<void (FilterBar::*)(const QString &)>(&FilterBar::SignalFilterWithKeyWord));
static_assert(IsSame<void (FilterBar::*)()>(&FilterBar::SignalFilterWithKeyWords));
static_assert(IsSame<void (FilterBar::*)()>(&FilterBar::SignalMoreBtnClicked));
static_assert(IsSame<void (FilterBar::*)()>(&FilterBar::SignalClearFilter));
static_assert(IsSame<void (FilterBar::*)(Ravel::CTreeViewModel *)>(&FilterBar::SetModel));
static_assert(IsSame<void (FilterBar::*)()>(&FilterBar::AddTopLevelItems));
static_assert(IsSame<void (FilterBar::*)(int, int)>(&FilterBar::SetRelatedIndex));
static_assert(IsSame<bool (FilterBar::*)() const>(&FilterBar::IsKeyWord));
static_assert(IsSame<void (FilterBar::*)(const QString &)>(&FilterBar::SetKeyWord));
static_assert(IsSame<void (FilterBar::*)(const QStringList &)>(&FilterBar::SetSelectedMainType));
static_assert(IsSame<void (FilterBar::*)(const QStringList &)>(&FilterBar::SetSelectedSubType));
static_assert(IsSame<void (FilterBar::*)()>(&FilterBar::OnFilterBtnClicked));
static_assert(IsSame<void (FilterBar::*)()>(&FilterBar::OnClearFilter));

static_assert(IsSame<QStringList (TypeBox::*)() const>(&TypeBox::GetSelectedStringItems));
static_assert(IsSame<void (TypeBox::*)(const QStringList &)>(&TypeBox::SetSelectedStringItems));
static_assert(IsSame<void (TypeBox::*)(int)>(&TypeBox::UpdateData));
static_assert(IsSame<void (TypeBox::*)()>(&TypeBox::ClearAllItems));
static_assert(IsSame<void (TypeBox::*)()>(&TypeBox::CheckOutSelectedItems));
static_assert(IsSame<void (TypeBox::*)(const QString &)>(&TypeBox::OnFilterByMainType));
static_assert(IsSame<void (Vantor::CComboBoxModel::*)(std::vector<QString> &)>(
    &Vantor::CComboBoxModel::ConstructModel));
namespace Keys = Vantor::KeyboradData;
using Key = Keys::KeyOperation::Type;
using UsbFunction = Key (*)(Keys::USBKeyboardOperation::KeyType);
using StickFunction = Key (*)(Keys::JoystickOperation::KeyType);
using Com = ResourceManager::SystemConfig::COMJoystick;
using Devices = Vantor::CJoystickKeyboardControlManager;
using SerialKeyboard = Vantor::CZellSerialKeyboardControlManager;
using UsbKeyboard = Vantor::CZellUSBKeyboardControlManager;
using Joystick = Vantor::CUSBJoystickControlManager;
template <class T> using ControlSignal = void (T::*)(Key, bool, int, int, bool, bool);
template <class T> using ModeSignal = void (T::*)(Keys::ModUsb);
static_assert(
    IsSame<bool (Devices::*)(Com, UsbFunction, StickFunction, QWidget *)>(&Devices::InitKeyBoard));
static_assert(IsSame<bool (Devices::*)()>(&Devices::UnInitKeyBoard));
static_assert(IsSame<bool (Devices::*)(Com)>(&Devices::OpenPCSerial));
static_assert(IsSame<bool (Devices::*)()>(&Devices::ClosePCSerial));
static_assert(IsSame<void (Devices::*)(QWidget *)>(&Devices::SetTipInfoParentWnd));
static_assert(IsSame<QWidget *(Devices::*)() const>(&Devices::GetTipInfoParentWnd));
static_assert(IsSame<bool (Devices::*)() const>(&Devices::GetEventStatus));
static_assert(IsSame<void (Devices::*)(bool)>(&Devices::SetEventStatus));
static_assert(IsSame<ControlSignal<Devices>>(&Devices::SignalJoystickKeyboardControl));
static_assert(IsSame<void (Devices::*)(Key, bool, int, int, bool)>(
    &Devices::SignalJoystickKeyboardControlWall));
static_assert(IsSame<bool (SerialKeyboard::*)()>(&SerialKeyboard::InitZellSerialKeyboard));
static_assert(IsSame<bool (SerialKeyboard::*)()>(&SerialKeyboard::UnInitZellSerialKeyboard));
static_assert(IsSame<void (SerialKeyboard::*)(quint32, quint32)>(&SerialKeyboard::InputEvent));
static_assert(
    IsSame<ControlSignal<SerialKeyboard>>(&SerialKeyboard::SignalZellSerialKeyboardControl));
static_assert(IsSame<bool (UsbKeyboard::*)()>(&UsbKeyboard::InitZellUSBKeyboard));
static_assert(IsSame<bool (UsbKeyboard::*)()>(&UsbKeyboard::UnInitZellUSBKeyboard));
static_assert(
    IsSame<Keys::ModUsb (UsbKeyboard::*)() const>(&UsbKeyboard::ConnetZellUSBJoystickType));
static_assert(IsSame<void (UsbKeyboard::*)(quint32, quint32, quint32, UsbFunction)>(
    &UsbKeyboard::InputEvent));
static_assert(IsSame<ControlSignal<UsbKeyboard>>(&UsbKeyboard::SignalZellUSBKeyboardControl));
static_assert(IsSame<ModeSignal<UsbKeyboard>>(&UsbKeyboard::SignalSwitchToUsbKeyboardMode));
static_assert(IsSame<bool (Joystick::*)()>(&Joystick::InitUSBJoystick));
static_assert(IsSame<bool (Joystick::*)()>(&Joystick::UnInitUSBJoystick));
static_assert(IsSame<Keys::ModUsb (Joystick::*)() const>(&Joystick::ConnetZellUSBJoystickType));
static_assert(IsSame<void (Joystick::*)(quint32, quint32, StickFunction)>(&Joystick::InputEvent));
static_assert(IsSame<ControlSignal<Joystick>>(&Joystick::SignalUSBJostickControl));
static_assert(IsSame<ModeSignal<Joystick>>(&Joystick::SignalSwitchToUsbJostickMode));

static_assert(IsSame<bool (Excel::*)(const Text &, Text)>(&Excel::Init));
static_assert(IsSame<bool (Excel::*)(const Text &)>(&Excel::AddSheetByName));
static_assert(IsSame<lxw_workbook *(Excel::*)()>(&Excel::GetWorkBook));
static_assert(IsSame<lxw_worksheet *(Excel::*)(const Text &)>(&Excel::GetWorkSheet));
static_assert(IsSame<void (Excel::*)(const Text &)>(&Excel::DeleteSheet));
static_assert(IsSame<int (Excel::*)() const>(&Excel::GetSheetCount));
static_assert(IsSame<void (Excel::*)(int, int, int, int, const Text &, Look)>(&Excel::MergeCells));
static_assert(IsSame<void (Excel::*)(int, int, const Text &)>(&Excel::SetCellValidCheck));
static_assert(
    IsSame<void (Excel::*)(int, int, int, int, const Text &)>(&Excel::SetRangeValidCheck));
static_assert(IsSame<void (Excel::*)(int, int, Text, std::uint64_t)>(&Excel::SetColumnPicsBuffer));
static_assert(
    IsSame<void (Excel::*)(int, int, const Text &, ImageOptions)>(&Excel::SetColumnPicsBufferOpt));
static_assert(IsSame<void (Excel::*)(int, int, int, int)>(&Excel::SetFilterCoumn));
static_assert(IsSame<void (Excel::*)(int, Text)>(&Excel::SetFilterOneCoumnWith1Str));
static_assert(IsSame<void (Excel::*)(int, Text, Text)>(&Excel::SetFilterOneCoumnWith2Str));
static_assert(IsSame<void (Excel::*)(int, Text)>(&Excel::SetFilterCoumnWithListStr));
static_assert(IsSame<void (Excel::*)(int, int, int)>(&Excel::SetColumnWidth));
static_assert(IsSame<void (Excel::*)(int, int, int)>(&Excel::SetColumnWidthtWithPixels));
static_assert(IsSame<void (Excel::*)(int, int)>(&Excel::SetRowHeight));
static_assert(IsSame<void (Excel::*)(int, int)>(&Excel::SetRowHeightWithPixels));
static_assert(IsSame<int (Excel::*)()>(&Excel::GetUsedRowsCount));
static_assert(IsSame<void (Excel::*)(int)>(&Excel::UpdateSheetUsedRow));
static_assert(IsSame<void (Excel::*)()>(&Excel::Close));
static_assert(IsSame<void (Excel::*)()>(&Excel::Discard));
static_assert(IsSame<int (Excel::*)() const>(&Excel::LastCloseResult));
static_assert(IsSame<void (Excel::*)(int, int, const Text &, Look)>(
    qOverload<int, int, const Text &, Look>(&Excel::SetCellString)));
static_assert(IsSame<void (Excel::*)(int, int, const double &, Look)>(
    qOverload<int, int, const double &, Look>(&Excel::SetCellString)));
static_assert(
    IsSame<void (Excel::*)(int, int, Text)>(qOverload<int, int, Text>(&Excel::SetColumnPics)));
static_assert(IsSame<void (Excel::*)(int, int, QList<Text>, QSize)>(
    qOverload<int, int, QList<Text>, QSize>(&Excel::SetColumnPics)));
static_assert(
    IsSame<void (Excel::*)(int, int, Text &)>(qOverload<int, int, Text &>(&Excel::SetLinkString)));
static_assert(IsSame<void (Excel::*)(int, int, Text &, Text &)>(
    qOverload<int, int, Text &, Text &>(&Excel::SetLinkString)));
static_assert(std::is_base_of<QObject, Excel>::value);
static_assert(std::is_constructible<Excel, QObject *>::value);

static_assert(
    IsSame<int (Vantor::Clxw_format_::*)() const>(&Vantor::Clxw_format_::GetVal_font_size));
static_assert(
    IsSame<bool (Vantor::Clxw_format_::*)() const>(&Vantor::Clxw_format_::GetVal_is_blod));
static_assert(
    IsSame<int (Vantor::Clxw_format_::*)() const>(&Vantor::Clxw_format_::GetVal_text_location));
static_assert(
    IsSame<Text (Vantor::Clxw_format_::*)() const>(&Vantor::Clxw_format_::GetVal_background_color));
static_assert(
    IsSame<Text (Vantor::Clxw_format_::*)() const>(&Vantor::Clxw_format_::GetVal_text_color));
static_assert(
    IsSame<int (Vantor::Clxw_format_::*)() const>(&Vantor::Clxw_format_::GetVal_cell_type));
static_assert(
    IsSame<Text (Vantor::Clxw_format_::*)() const>(&Vantor::Clxw_format_::GetVal_font_faimily));
static_assert(
    IsSame<bool (Vantor::Clxw_format_::*)() const>(&Vantor::Clxw_format_::GetVal_is_need_wrap));

static_assert(
    IsSame<int (Vantor::CsheetFormat::*)() const>(&Vantor::CsheetFormat::GetVal_has_used_row));
static_assert(
    IsSame<lxw_worksheet *(Vantor::CsheetFormat::*)() const>(&Vantor::CsheetFormat::GetVal_sheet));

static_assert(IsSame<int (Vantor::Clxw_image_options_::*)() const>(
    &Vantor::Clxw_image_options_::GetVal_x_offset));
static_assert(IsSame<int (Vantor::Clxw_image_options_::*)() const>(
    &Vantor::Clxw_image_options_::GetVal_y_offset));
static_assert(IsSame<double (Vantor::Clxw_image_options_::*)() const>(
    &Vantor::Clxw_image_options_::GetVal_x_scale));
static_assert(IsSame<double (Vantor::Clxw_image_options_::*)() const>(
    &Vantor::Clxw_image_options_::GetVal_y_scale));
static_assert(IsSame<unsigned char (Vantor::Clxw_image_options_::*)() const>(
    &Vantor::Clxw_image_options_::GetVal_object_position));
static_assert(IsSame<char *(Vantor::Clxw_image_options_::*)() const>(
    &Vantor::Clxw_image_options_::GetVal_description));
static_assert(IsSame<char *(Vantor::Clxw_image_options_::*)() const>(
    &Vantor::Clxw_image_options_::GetVal_url));
static_assert(IsSame<char *(Vantor::Clxw_image_options_::*)() const>(
    &Vantor::Clxw_image_options_::GetVal_tip));

static_assert(IsSame<QColor (Manager::*)(float)>(&Manager::GetNeuColor));
static_assert(IsSame<QColor (Manager::*)(float)>(&Manager::GetNeuColorT2));
static_assert(IsSame<QColor (Manager::*)(float)>(&Manager::GetTextNeuColor));
static_assert(IsSame<QColor (Manager::*)(float)>(&Manager::GetTextNeuColorT2));
static_assert(IsSame<QColor (Manager::*)() const>(&Manager::NeuColor));
static_assert(IsSame<void (Manager::*)(const QColor &)>(&Manager::SetNeuColor));
static_assert(IsSame<QColor (Manager::*)() const>(&Manager::NeuColorT2));
static_assert(IsSame<void (Manager::*)(const QColor &)>(&Manager::SetNeuColorT2));
static_assert(IsSame<QColor (Manager::*)() const>(&Manager::TextNeuColor));
static_assert(IsSame<void (Manager::*)(const QColor &)>(&Manager::SetTextNeuColor));
static_assert(IsSame<QColor (Manager::*)() const>(&Manager::TextNeuColorT2));
static_assert(IsSame<void (Manager::*)(const QColor &)>(&Manager::SetTextNeuColorT2));
static_assert(IsSame<QColor (Manager::*)() const>(&Manager::BackColor));
static_assert(IsSame<void (Manager::*)(const QColor &)>(&Manager::SetBackColor));
static_assert(IsSame<QColor (Manager::*)() const>(&Manager::PanelColor));
static_assert(IsSame<void (Manager::*)(const QColor &)>(&Manager::SetPanelColor));
static_assert(IsSame<QColor (Manager::*)() const>(&Manager::WidgetColor));
static_assert(IsSame<void (Manager::*)(const QColor &)>(&Manager::SetWidgetColor));
static_assert(IsSame<QColor (Manager::*)() const>(&Manager::BackColorT2));
static_assert(IsSame<void (Manager::*)(const QColor &)>(&Manager::SetBackColorT2));
static_assert(IsSame<QColor (Manager::*)() const>(&Manager::PanelColorT2));
static_assert(IsSame<void (Manager::*)(const QColor &)>(&Manager::SetPanelColorT2));
static_assert(IsSame<QColor (Manager::*)() const>(&Manager::WidgetColorT2));
static_assert(IsSame<void (Manager::*)(const QColor &)>(&Manager::SetWidgetColorT2));
static_assert(IsSame<QColor (Manager::*)() const>(&Manager::BrandColor));
static_assert(IsSame<void (Manager::*)(const QColor &)>(&Manager::SetBrandColor));
static_assert(IsSame<QColor (Manager::*)() const>(&Manager::InfoColor));
static_assert(IsSame<void (Manager::*)(const QColor &)>(&Manager::SetInfoColor));
static_assert(std::is_base_of<QWidget, Manager>::value);
static_assert(IsSame<Manager &(*)()>(&Nim::Base::CSingleton<Manager>::Instance));

static_assert(IsSame<void (Ravel::CChaseDialog::*)()>(&Ravel::CChaseDialog::OnStopChaseByAccept));
static_assert(
    IsSame<Ravel::CWaitWatcher &(*)()>(&Ravel::CUiSingleton<Ravel::CWaitWatcher>::Instance));
static_assert(IsSame<void (Ravel::CMultiPairData::*)(const QVariant &, const QVariant &)>(
    &Ravel::CMultiPairData::InsertPairData));
static_assert(IsSame<QVariant (Ravel::CMultiPairData::*)(const QVariant &) const>(
    &Ravel::CMultiPairData::GetPairData));
static_assert(IsSame<bool (*)(bool, Nim::Base::MonitorDriveUtil::DeviceChangeCallBack, void *)>(
    &Nim::Base::MonitorDriveUtil::SetDeviceChangeCallBack));
static_assert(std::is_default_constructible<Nim::Base::MonitorDriveUtil::DeviceInfoStru>::value);

using Comm = BusinessCommon::CNetCommManager;
static_assert(IsSame<Comm &(*)()>(&Nim::Base::CSingleton<Comm>::Instance));
static_assert(
    IsSame<bool (Comm::*)(ClientComm::CClientRecvInfo &, const ClientComm::CClientSendInfo &, int)>(
        &Comm::ClientSynSend));
static_assert(IsSame<std::string (ClientComm::CClientSendInfo::*)() const>(
    &ClientComm::CClientSendInfo::GetVal_Request_Data));
static_assert(IsSame<void (ClientComm::CClientSendInfo::*)(const int &)>(
    &ClientComm::CClientSendInfo::SetVal_Pattern));
static_assert(IsSame<Nim::Base::Error::ErrorCode (ClientComm::CClientRecvInfo::*)() const>(
    &ClientComm::CClientRecvInfo::GetVal_Error_code));
static_assert(IsSame<std::string (ClientComm::CClientRecvInfo::*)() const>(
    &ClientComm::CClientRecvInfo::GetVal_Receive_Data));
using Layouts = BusinessCommon::CAdaptiveColumnWidthManager;
static_assert(
    IsSame<void (Layouts::*)(const std::shared_ptr<const BusinessCommon::AdaptiveLayout> &)>(
        &Layouts::AsyRequestAdaptiveColumnWidth));

static_assert(IsSame<bool (*)(const std::string &)>(&Nim::Base::FileSystem::MakeDir));
static_assert(IsSame<int (*)(const char *)>(&Nim::Base::FileSystem::FileExists));
static_assert(IsSame<int (*)(const char *, const char *)>(&Nim::Base::FileSystem::RenameFile));
static_assert(IsSame<int (*)(const char *)>(&Nim::Base::FileSystem::DeleteFileW));
static_assert(IsSame<int (*)(const char *, const char *, int)>(&Nim::Base::FileSystem::CopyFileW));
static_assert(
    IsSame<bool (*)(std::string &, const std::string &)>(&Nim::Base::Encrypt::Base64Decode));
static_assert(IsSame<QString (*)(const QByteArray &, QTextCodec *)>(&Ravel::ConvertToUnicode));
static_assert(IsSame<QByteArray (*)(const QString &, QTextCodec *)>(&Ravel::ConvertFromUnicode));
static_assert(Nim::Base::Error::ErrorCode{}.module_code == 0
              && Nim::Base::Error::ErrorCode{}.error_code == 0
              && Nim::Base::Error::ErrorCode{}.sub_system == 0);

using ColumnButton = Vantor::CCustomizeColumnButton;
using ColumnWidget = Vantor::CCustomizeColumnWidget;
using WidthController = Vantor::CAdaptiveColumnWidthController;
using WidthWidget = Vantor::CAdaptiveColumnWidthWidget;
using Columns = QVector<Vantor::CColumnInfo>;
static_assert(
    IsSame<void (ColumnButton::*)(const QString &, const QString &, const Columns &, QWidget *)>(
        &ColumnButton::InitCustomizeListByModuleNameANdFunction));
static_assert(IsSame<void (ColumnButton::*)()>(&ColumnButton::UnInitCustomizeList));
static_assert(IsSame<void (ColumnButton::*)(QStringList &) const>(
    qOverload<QStringList &>(&ColumnButton::GetCustomizeListCurrentContent)));
static_assert(IsSame<void (ColumnButton::*)(QStringList &, QList<int> &) const>(
    qOverload<QStringList &, QList<int> &>(&ColumnButton::GetCustomizeListCurrentContent)));
static_assert(IsSame<void (ColumnButton::*)()>(&ColumnButton::StopWork));
static_assert(IsSame<void (ColumnButton::*)()>(&ColumnButton::UpdateAfterSwitchUser));
static_assert(IsSame<void (ColumnButton::*)()>(&ColumnButton::SignalGetCurrentCustomizelistShow));
static_assert(std::is_base_of<QPushButton, ColumnButton>::value);
static_assert(IsSame<void (ColumnWidget::*)(const Columns &)>(&ColumnWidget::InitCustomizeWidget));
static_assert(
    IsSame<void (ColumnWidget::*)(const Columns &)>(&ColumnWidget::SetCustomizeWidgetListItems));
static_assert(IsSame<void (ColumnWidget::*)(QStringList &, QList<int> &) const>(
    qOverload<QStringList &, QList<int> &>(&ColumnWidget::GetCustomlistItemsContent)));
static_assert(IsSame<void (ColumnWidget::*)(QStringList &) const>(
    qOverload<QStringList &>(&ColumnWidget::GetCustomlistItemsContent)));
static_assert(IsSame<void (ColumnWidget::*)(Columns &) const>(
    qOverload<Columns &>(&ColumnWidget::GetCustomlistItemsContent)));
static_assert(
    IsSame<void (ColumnWidget::*)(Columns &) const>(&ColumnWidget::GetCustomlistItemsContentInit));
static_assert(
    IsSame<void (ColumnWidget::*)(const QVector<QWidget *> &)>(&ColumnWidget::SetRelateWidget));
static_assert(IsSame<void (ColumnWidget::*)()>(&ColumnWidget::ClearCustomizeListItemsContent));
static_assert(
    IsSame<void (ColumnWidget::*)(Columns &) const>(&ColumnWidget::GetPreChangedCustomListState));
static_assert(IsSame<void (ColumnWidget::*)()>(&ColumnWidget::SignalCutomizelistChanged));
static_assert(IsSame<void (ColumnWidget::*)()>(&ColumnWidget::SignalLeaveWidget));
static_assert(IsSame<void (ColumnWidget::*)()>(&ColumnWidget::SignalColumnWidgetFinishChanged));
static_assert(IsSame<void (WidthController::*)(const BusinessCommon::AdaptiveLayout &)>(
    &WidthController::AdaptiveGetOrPostLayoutCurrentColumnState));
static_assert(IsSame<void (WidthController::*)(const QString &)>(
    &WidthController::SignalGetLayoutDataSuccess));
static_assert(
    IsSame<void (WidthController::*)(const bool &)>(&WidthController::SignalPostLayoutDataSuccess));
static_assert(IsSame<void (WidthController::*)(const int &, const int &, const int &)>(
    &WidthController::SignalRequestDataFailed));
static_assert(
    std::is_base_of<BusinessCommon::CAdaptiveColumnWidthObserver, WidthController>::value);
static_assert(IsSame<void (WidthWidget::*)(const int &)>(&WidthWidget::UpdateRaddioButtonState));
static_assert(IsSame<void (WidthWidget::*)(QWidget *)>(&WidthWidget::SetRelateWidget));
static_assert(
    IsSame<void (WidthWidget::*)(const int &)>(&WidthWidget::SignalColumnWidthStateChanged));
static_assert(std::is_base_of<QStandardItemModel, Vantor::CListSightCheckModel>::value);
static_assert(std::is_base_of<QListView, Vantor::CItemDragMovableListView>::value);
static_assert(std::is_base_of<QStyledItemDelegate, Vantor::CCustomListItemDelegate>::value);
static_assert(IsSame<int (Vantor::CColumnInfo::*)() const>(&Vantor::CColumnInfo::GetVal_column_No));
static_assert(IsSame<int (Vantor::CColumnInfo::*)() const>(&Vantor::CColumnInfo::GetVal_column_id));
static_assert(
    IsSame<QString (Vantor::CColumnInfo::*)() const>(&Vantor::CColumnInfo::GetVal_column_name));
static_assert(IsSame<Qt::CheckState (Vantor::CColumnInfo::*)() const>(
    &Vantor::CColumnInfo::GetVal_column_checked));
static_assert(
    IsSame<bool (Vantor::CColumnInfo::*)() const>(&Vantor::CColumnInfo::GetVal_b_manual_check));
static_assert(
    IsSame<bool (Vantor::CColumnInfo::*)() const>(&Vantor::CColumnInfo::GetVal_b_manual_sort));
static_assert(IsSame<void (*)(const Faceplate::CStruInfoTipsData &)>(
    &Faceplate::CNewInfoDlg::ShowInformationAtScreenRightBottom_V3));
static_assert(IsSame<void (*)(QWidget *, const QString &, int, int, int)>(
    &Faceplate::CGUIMessageTipManager::ShowMessage));
static_assert(
    IsSame<QString (*)(const Nim::Base::Error::ErrorCode &)>(&ErrorText::GetErrorInfoByErrorCode));
using Docks = Vantor::CDockManager;
using Dock = Vantor::CDockWidget;
using Frame = Vantor::CAbstractDockFrame;
using BaseFrame = Vantor::CBaseDockFrame;
using Rule = QPointer<Vantor::CDockWidgetPosRule>;
static_assert(IsSame<void (Docks::*)(QWidget *)>(&Docks::SetMainWindow));
static_assert(IsSame<QWidget *(Docks::*)() const>(&Docks::GetMainWindow));
static_assert(IsSame<void (Docks::*)(Frame *, int, bool, QWidget *)>(
    qOverload<Frame *, int, bool, QWidget *>(&Docks::SetDockWidget)));
static_assert(IsSame<void (Docks::*)(Frame *, Rule, int)>(
    qOverload<Frame *, Rule, int>(&Docks::SetDockWidget)));
static_assert(IsSame<void (Docks::*)()>(&Docks::HideDockWidget));
static_assert(IsSame<Dock *(Docks::*)() const>(&Docks::GetDockWidget));
static_assert(IsSame<void (Docks::*)(Docks::ContentType)>(&Docks::SetContentType));
static_assert(Docks::Common == 1 && Docks::Export == 2);
static_assert(IsSame<void (Dock::*)(Frame *, int, bool)>(&Dock::SetDockWidget));
static_assert(IsSame<void (Dock::*)(Frame *, Rule, int)>(&Dock::SetDockWidgetWithPosRule));
static_assert(IsSame<void (Dock::*)()>(&Dock::ShowInAnimation));
static_assert(IsSame<void (Dock::*)()>(&Dock::HideInAnimation));
static_assert(IsSame<void (Dock::*)(int)>(&Dock::SetContentType));
static_assert(IsSame<QWidget *(Dock::*)() const>(&Dock::GetParentWidget));
static_assert(IsSame<void (Dock::*)()>(&Dock::UpdatePostion));
static_assert(IsSame<void (Dock::*)()>(&Dock::OnHideFinished));
static_assert(IsSame<void (Dock::*)()>(&Dock::OnShowFinished));
static_assert(IsSame<bool (Frame::*)() const>(&Frame::IsAutoHide));
static_assert(IsSame<void (Frame::*)(bool)>(&Frame::SetAutoHide));
static_assert(IsSame<void (BaseFrame::*)(const QString &)>(&BaseFrame::SetTitleText));
static_assert(IsSame<void (BaseFrame::*)(bool)>(&BaseFrame::SetBottomFrameVisible));
static_assert(IsSame<void (BaseFrame::*)(bool)>(&BaseFrame::SetHideEmit));
static_assert(IsSame<void (BaseFrame::*)(bool)>(&BaseFrame::SetResetButtonVisible));
static_assert(IsSame<void (BaseFrame::*)(bool)>(&BaseFrame::SetCancelButtonVisible));
static_assert(IsSame<void (BaseFrame::*)(const QString &)>(&BaseFrame::SetSaveBtnText));
static_assert(IsSame<void (BaseFrame::*)(bool)>(&BaseFrame::SetSaveEnabeld));
static_assert(IsSame<void (BaseFrame::*)(QWidget *)>(&BaseFrame::SetContentWnd));
static_assert(IsSame<QWidget *(BaseFrame::*)() const>(&BaseFrame::GetSetUpUiWidget));
static_assert(IsSame<QFrame *(BaseFrame::*)() const>(&BaseFrame::GetTitleFrame));
static_assert(IsSame<QScrollArea *(BaseFrame::*)() const>(&BaseFrame::GetScrollArea));
static_assert(IsSame<QWidget *(BaseFrame::*)() const>(&BaseFrame::GetButtonWidget));
static_assert(IsSame<void (BaseFrame::*)()>(&BaseFrame::signalConfirm));
static_assert(IsSame<void (BaseFrame::*)()>(&BaseFrame::signalCancel));
static_assert(IsSame<void (BaseFrame::*)()>(&BaseFrame::signalReset));

using Line = Vantor::CAnimationProgressBar;
using FileLine = Vantor::CBaseFileProgressBar;
using Bars = Vantor::CTimeBarDelegate;
using Layer = Vantor::CAbstractDelegate;
using RecordedFile = Vantor::TimeSliderFile;
using FilePtr = std::shared_ptr<RecordedFile>;
using BarList = QVector<Vantor::CTimeBarParam>;
using Convert = std::function<qint64(qint64)>;
static_assert(std::is_constructible<Bars, QObject *>::value);
static_assert(IsSame<void (Bars::*)(const BarList &)>(&Bars::AppendTimeBar));
static_assert(IsSame<void (Bars::*)(const BarList &)>(&Bars::AppendSyncTimeBar));
static_assert(IsSame<const BarList &(Bars::*)() const>(&Bars::GetTimeBar));
static_assert(IsSame<void (Bars::*)(const QList<int> &)>(&Bars::InitTypes));
static_assert(IsSame<void (Bars::*)(int, bool)>(&Bars::SetTimeBarVisible));
static_assert(IsSame<bool (Bars::*)(int) const>(&Bars::IsTimeBarVisible));
static_assert(IsSame<void (Bars::*)(const QList<int> &)>(&Bars::SetUnvisibleTypes));
static_assert(IsSame<void (Bars::*)(float)>(&Bars::SetOpacity));
static_assert(IsSame<void (Bars::*)(bool)>(&Bars::SetSyncFlag));
static_assert(IsSame<void (Bars::*)()>(&Bars::ClearSyncTimeBar));
static_assert(IsSame<int (Layer::*)() const>(&Layer::GetDelegateType));
static_assert(IsSame<Line *(Layer::*)() const>(&Layer::AnimationProgressBar));
static_assert(IsSame<Bars *(FileLine::*)()>(&FileLine::TimeBarDelegate));
static_assert(
    IsSame<Vantor::CTimeBarParam (*)(FilePtr, const Convert &, bool)>(&FileLine::NewATimeBarParam));
static_assert(IsSame<bool (Line::*)() const>(&Line::IsSimplifyMode));
static_assert(IsSame<double (Line::*)() const>(&Line::UnitScaleLength));
static_assert(IsSame<double (Line::*)() const>(&Line::UnitTimeLength));
static_assert(IsSame<void (Line::*)(bool)>(&Line::SetPressed));
static_assert(IsSame<void (Line::*)()>(&Line::StopMovingX));
static_assert(std::is_constructible<RecordedFile, unsigned long long, Text, qint64, qint64,
                                    Vantor::TimeSliderFileType, Text>::value);
static_assert(IsSame<qint64 (RecordedFile::*)() const>(&RecordedFile::GetFileBegTime));
static_assert(IsSame<void (RecordedFile::*)(qint64)>(&RecordedFile::SetFileBeginTime));
static_assert(IsSame<Text (RecordedFile::*)() const>(&RecordedFile::GetSourceCameraId));
static_assert(IsSame<int (RecordedFile::*)() const>(&RecordedFile::GetRecordFileType));

using Login = Vantor::CAccountPasswordWidget;
using Password = Vantor::CPasswordFrame;
using PasswordBase = Vantor::CPasswordFrameBase;
using CodeWidget = Vantor::CVerifyCodeWidget;
using CodeRequest = Vantor::CVerifycodeRequestObj;
static_assert(IsSame<Login::LoginState (Login::*)(std::string &, std::string)>(&Login::LoginIn));
static_assert(IsSame<void (Login::*)()>(&Login::Clear));
static_assert(IsSame<void (Login::*)()>(&Login::RestoreUI));
static_assert(IsSame<QPointer<Password> (Login::*)()>(&Login::GetPasswordEditWidget));
static_assert(IsSame<void (Login::*)(int)>(&Login::SetWaitOutTime));
static_assert(IsSame<void (Login::*)(QPointer<QWidget>)>(&Login::SetMainWidget));
static_assert(IsSame<QString (PasswordBase::*)() const>(&Password::GetPasswordLineEditText));
static_assert(IsSame<bool (PasswordBase::*)() const>(&Password::IsPasswordEmpty));
static_assert(
    IsSame<Ravel::CPasswordLineEdit *(Password::*)() const>(&Password::GetPassWordLineEdit));
static_assert(
    IsSame<Ravel::CPasswordLineEdit *(PasswordBase::*)() const>(&Password::GetPasswordLineEdit));
static_assert(IsSame<Ravel::CFrame *(PasswordBase::*)() const>(&Password::GetBaseFrame));
static_assert(IsSame<Ravel::CLabel *(PasswordBase::*)() const>(&Password::GetLabel));
static_assert(IsSame<QPushButton *(PasswordBase::*)() const>(&Password::GetSwitchPassBtn));
static_assert(IsSame<void (Password::*)(bool)>(&Password::HideLeftSpacer));
static_assert(IsSame<void (PasswordBase::*)()>(&Password::OnSwitchPassWordShow));
static_assert(IsSame<void (PasswordBase::*)(bool)>(&Password::SetPassWordState));
static_assert(IsSame<void (PasswordBase::*)(QPixmap &)>(&Password::SetPixmap));
static_assert(IsSame<bool (PasswordBase::*)(QString &)>(&Password::PasswordValidCheck));
static_assert(
    IsSame<void (PasswordBase::*)(const QString &)>(&Password::SignalLienEditTextChanged));
static_assert(IsSame<void (PasswordBase::*)(const QString &)>(&Password::SignalFousOut));
static_assert(IsSame<Vantor::CPasswordLineEditNoInputMethod *(Vantor::CCustomPasswordFrame::*)()
                         const>(&Vantor::CCustomPasswordFrame::GetPassWordLineEdit));
static_assert(
    std::is_base_of<Ravel::CPasswordLineEdit, Vantor::CPasswordLineEditNoInputMethod>::value);
static_assert(IsSame<Vantor::CStruVerifyCode (CodeWidget::*)() const>(&CodeWidget::GetVerifyCode));
static_assert(IsSame<bool (CodeWidget::*)() const>(&CodeWidget::IsCodeTextEmpty));
static_assert(IsSame<void (CodeWidget::*)()>(&CodeWidget::SetEditFocus));
static_assert(IsSame<void (CodeWidget::*)(int, int, int, int)>(&CodeWidget::SetMargins));
static_assert(IsSame<void (CodeWidget::*)()>(&CodeWidget::HideLabel));
static_assert(IsSame<void (CodeWidget::*)()>(&CodeWidget::SignalRefreshVerifyCode));
static_assert(
    IsSame<bool (CodeRequest::*)(const QString &, Vantor::CStruVerifyCode &,
                                 ErrorText::CErrorCodeEvent &)>(&CodeRequest::RequestVerifyCode));

// The three templates as hosts use them on classes of their own.
class CHostObject : public QObject, public Ravel::CObjectSingleton<CHostObject>
{
    friend class Ravel::CObjectSingleton<CHostObject>;
    explicit CHostObject(QObject *parent) : QObject(parent) {}
};
static_assert(IsSame<CHostObject *(*)(QObject *)>(&CHostObject::CreateInstance));
static_assert(IsSame<CHostObject *(*)()>(&CHostObject::Instance));
static_assert(IsSame<void (*)()>(&CHostObject::DeleteInstance));

} // namespace

Q_DECLARE_METATYPE(const QMetaObject *)

class TestNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // What only the meta object knows: style sheets and string-based connects of hosts go through
    // these.
    void theMetaObjectsKnowTheNames_data()
    {
        QTest::addColumn<const QMetaObject *>("meta");
        QTest::addColumn<QByteArray>("class_name");
        QTest::addColumn<QByteArray>("method");
        QTest::newRow("end of an export")
            << &Parser::staticMetaObject << QByteArray("Vantor::CCSVParser")
            << QByteArray("SignalWriteOver()");
        QTest::newRow("a window that fills the screen")
            << &Faceplate::CGUIFullScreenWidget::staticMetaObject
            << QByteArray("Faceplate::CGUIFullScreenWidget")
            << QByteArray("SignalFullScreenModeChanged(bool)");
        QTest::newRow("a plug-in's window")
            << &Lookout::CBaseWidget::staticMetaObject << QByteArray("Lookout::CBaseWidget")
            << QByteArray("close()");
        QTest::newRow("end of a copy")
            << &CopyThread::staticMetaObject << QByteArray("Vantor::CCopyFileThread")
            << QByteArray("SendSaveFinish(bool,QStringList)");
        QTest::newRow("stop of a copy")
            << &CopyThread::staticMetaObject << QByteArray("Vantor::CCopyFileThread")
            << QByteArray("OnStopCopyFileThread()");
        QTest::newRow("end of a wait")
            << &Ravel::CChaseDialog::staticMetaObject << QByteArray("Ravel::CChaseDialog")
            << QByteArray("OnStopChaseByAccept()");
    }

    void theMetaObjectsKnowTheNames()
    {
        QFETCH(const QMetaObject *, meta);
        QFETCH(QByteArray, class_name);
        QFETCH(QByteArray, method);

        QCOMPARE(QByteArray(meta->className()), class_name);
        QVERIFY(meta->indexOfMethod(method.constData()) >= 0);
    }
};

QTEST_GUILESS_MAIN(TestNames)
#include "tst_names.moc"
