// tzassistant voucher: one voucher, posted or unposted, by its id.
#include "cli/cli.h"
#include "cli/logon.h"
#include "cli/refuse.h"
#include "cli/values.h"
#include "cli/voucher_writer.h"
#include "core/catalogue/catalogue.h"

namespace tz::cli {
namespace {

// Ids that spreadsheets and JSON hold exactly.
constexpr std::int64_t largestId = (std::int64_t{1} << 53) - 1;

struct VoucherOptions {
  Id id = 0;
  std::string ledger;
  bool unposted = false;
  std::string operatorName;
  OutputOptions output;
};

Status show(const VoucherOptions& options) {
  CQnCwDB db(Access::read);
  db.Open(options.ledger);
  const auto who = logOnFromTerminal(db, options.operatorName);
  if (!who) return Status::noRight;
  if (!mayReadVouchers(*who)) {
    complain("操作员 " + who->name + " 没有任何明细帐的权限，不能查看凭证");
    return Status::noRight;
  }
  Session session{.db = db, .ledger = options.ledger, .logon = {}, .who = *who};
  const auto outcome = readVoucher(session, options.unposted ? Book::unposted : Book::posted, options.id);
  if (const auto* refusal = std::get_if<Refusal>(&outcome)) return refuse(*refusal);
  writeVoucher(std::get<Voucher>(outcome), options.output);
  return Status::done;
}

}  // namespace

void addVoucherCommand(CLI::App& app, Work& work) {
  auto* command = app.add_subcommand("voucher", "显示一张凭证");
  const auto options = std::make_shared<VoucherOptions>();
  auto* id = command->add_option("LTIEID", options->id, "凭证的编号，即分录的 lTieId")->required();
  letCount(*id, 1, largestId);
  command->add_option("--ledger", options->ledger, "帐套的文件名或 postgresql:// 地址")
      ->required()
      ->type_name("LEDGER");
  command->add_flag("--unposted", options->unposted, "在未记帐凭证中查找，缺省为已记帐凭证");
  command->add_option("--operator", options->operatorName, "操作员；口令取自 TZ_PASSWORD 或提示")->type_name("NAME");
  letChoose(*command->add_option("--as", options->output.form, "输出形式"), voucherForms());
  command->footer(
      "说明\n"
      "  上一张、下一张（previous、next）按会计期间、凭证字、凭证号、编号的次序，已记帐和未记帐各自排列，不跨过去。\n"
      "  期初凭证（会计期间 0）不能联查。合计的大写金额按借方合计书写。\n"
      "  查看凭证要有任何一种明细帐的权限。");
  command->callback([&work, options] { work = [options] { return show(*options); }; });
}

}  // namespace tz::cli
