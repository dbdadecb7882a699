#include "desktop/shell/launch.h"

#include <algorithm>
#include <fmt/format.h>

#include "core/archives/archive.h"
#include "core/catalogue/catalogue.h"
#include "desktop/archives/archive_dialog.h"
#include "desktop/frame/globals.h"
#include "desktop/frame/message_box.h"
#include "desktop/report/log.h"
#include "desktop/report/long_work.h"
#include "desktop/report/report_window.h"
#include "desktop/report/search_window.h"
#include "desktop/report/voucher_window.h"
#include "desktop/shell/command_table.h"

namespace tz {
namespace {

bool hasSlot(int command) {
  const Command* found = findCommand(command);
  return found != nullptr && found->opens == Opens::report;
}

std::optional<Refusal> refusalOf(const ReportDefinition& report) {
  try {
    return launchRefusal(report.launchChecks, *g_pDB);
  } catch (const UnreadAnswer& error) {
    logFailure(report.windowTitle, error.what());
    return error.refusal();
  }
}

}  // namespace

ReportLauncher::ReportLauncher(Operator who, Find find) : who_(std::move(who)), find_(std::move(find)) {}

ReportLauncher::~ReportLauncher() = default;

void ReportLauncher::ReadRights() {
  if (!rightsNow_) return;
  try {
    Operator now = rightsNow_(who_);
    if (now == who_) return;
    who_ = std::move(now);
  } catch (const DbError& error) {
    // What is opened now says it itself.
    return logFailure("权限", error.what());
  }
  emit rightsChanged();
}

std::string ReportLauncher::Obstacle(int command) const {
  const auto wanted = [&](int right, std::string_view name) {
    if (who_.name.empty() && !who_.everyRight) return std::string("帐套现在有操作员了，请在帐套菜单中重新登录");
    if (who_.may(right)) return std::string();
    return fmt::format("操作员 {} 没有“{}”的权限（{} 号），请向管理员申请", who_.name, name, right);
  };
  if (const auto* directory = findArchiveDirectory(command)) return wanted(directory->right, directory->rightName);
  const ReportDefinition* report = find_(command);
  if (report == nullptr) return "该功能尚未提供";
  return wanted(report->right, report->rightName);
}

// Nothing of it stays once it is closed: windows read the archives anew at their next refresh.
void ReportLauncher::RunDirectory(const ArchiveDirectory& directory) {
  const CCheckAuth auth(who_, directory.right, 1, directory.rightName);
  if (!auth) return;
  ArchiveDialog window(directory, *g_pDB, g_lpszQnZwDBName, g_pDlgWnd);
  window.KeepFolder(exportFolder_);
  window.DoModal();
}

bool ReportLauncher::MayLaunch(const ReportDefinition& report) const {
  const CCheckAuth auth(who_, report.right, 1, report.rightName);
  if (!auth) return false;
  const auto refusal = refusalOf(report);
  if (refusal) AfxMessageBox(g_pDlgWnd, *refusal);
  return !refusal;
}

void ReportLauncher::Launch(int command) {
  if (LongWork::Running()) return;
  const bool offered = Obstacle(command).empty();
  ReadRights();
  // Whoever could not run it before sees why at its picture.
  if (const auto obstacle = Obstacle(command); offered && !obstacle.empty()) AfxMessageBox(g_pDlgWnd, obstacle);
  if (const auto* directory = findArchiveDirectory(command)) return RunDirectory(*directory);
  const ReportDefinition* report = find_(command);
  if (report == nullptr || !MayLaunch(*report)) return;
  if (hasSlot(command)) slots_.erase(command);
  ReportWindow* window = NewWindow(*report, nullptr);
  if (hasSlot(command)) slots_[command] = window;
  if (!window->OnCommandQuery()) {
    Forget(window);
    delete window;
    return;
  }
  if (Create(window)) window->RefreshDisplay();
}

ReportWindow* ReportLauncher::LaunchFromReport(const DetailTarget& target, QWidget* parent) {
  const ReportDefinition* report = find_(target.command);
  if (report == nullptr || LongWork::Running()) return nullptr;
  ReadRights();
  if (!CCheckAuth(who_, report->right, 1, report->rightName)) {
    AfxMessageBox(parent, Obstacle(target.command));
    return nullptr;
  }
  auto* window = qobject_cast<ReportWindow*>(SlotOf(target.command));
  if (window == nullptr) {
    window = NewWindow(*report, parent);
    slots_[target.command] = window;
  }
  if (!window->IsCreated() && !Create(window)) return nullptr;
  window->SetConditions(target);
  window->RefreshDisplay();
  return window;
}

VoucherWindow* ReportLauncher::OpenVoucher(const LineId& line, QWidget* asker) {
  if (LongWork::Running() || !MayRead(asker, "查看凭证")) return nullptr;
  auto* shared = qobject_cast<VoucherWindow*>(SlotOf(VoucherWindow::templateId));
  if (shared != nullptr) {
    if (!shared->Read(line, asker)) return nullptr;
    shared->RefreshDisplay();
    return shared;
  }
  auto window = std::make_unique<VoucherWindow>(asker);
  if (!window->Read(line, asker)) return nullptr;
  auto* opened = window.release();
  connect(opened, &VoucherWindow::ledgerWanted, this,
          [this, opened](const DetailTarget& target) { LaunchFromReport(target, opened); });
  return Open(opened) ? opened : nullptr;
}

bool ReportLauncher::MayRead(QWidget* asker, std::string_view what) {
  ReadRights();
  if (mayReadVouchers(who_)) return true;
  tellAccess({AccessEvent::Kind::rightRefused, who_.name, std::string(what)});
  AfxMessageBox(asker, fmt::format("操作员 {} 没有任何明细帐的权限，不能{}", who_.name, what));
  return false;
}

void ReportLauncher::OpenSearch() {
  if (LongWork::Running() || !MayRead(g_pDlgWnd, "查找分录")) return;
  if (ProcessWindow* open = SlotOf(SearchWindow::searchWindow)) {
    open->RefreshDisplay();
  } else {
    auto* window = new SearchWindow(nullptr);
    connect(window, &SearchWindow::voucherWanted, this,
            [this, window](const LineId& line) { OpenVoucher(line, window); });
    Open(window);
  }
}

bool ReportLauncher::Open(ProcessWindow* window) {
  slots_[window->Key()] = window;
  if (!Create(window)) return false;
  window->RefreshDisplay();
  return true;
}

ReportWindow* ReportLauncher::NewWindow(const ReportDefinition& report, QWidget* parent) {
  auto* window = new ReportWindow(report, parent);
  if (store_ != nullptr) window->OfferSaved(*store_);
  connect(window, &ReportWindow::detailWanted, this,
          [this, window](const DetailTarget& target) { LaunchFromReport(target, window); });
  connect(window, &ReportWindow::voucherWanted, this,
          [this, window](const LineId& line) { OpenVoucher(line, window); });
  return window;
}

bool ReportLauncher::Create(ProcessWindow* window) {
  windows_.push_back(window);
  connect(window, &ProcessWindow::closed, this, [this, window] { Forget(window); });
  if (!window->CreateTheDialog(g_pDlgWnd)) return false;
  emit opened(window);
  emit windowsChanged();
  return true;
}

void ReportLauncher::Forget(ProcessWindow* window) {
  // A report that was launched once more has left its slot to the newer window.
  std::erase_if(slots_, [window](const auto& slot) { return slot.second == window; });
  if (std::erase(windows_, window) != 0) emit windowsChanged();
}

ProcessWindow* ReportLauncher::SlotOf(int key) const {
  const auto found = slots_.find(key);
  return found == slots_.end() ? nullptr : found->second;
}

void ReportLauncher::CloseAll() {
  const auto open = windows_;
  for (ProcessWindow* window : open) window->close();
}

}  // namespace tz
