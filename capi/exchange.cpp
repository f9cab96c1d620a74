// A company as files, one for each table.
#include "hostkit/exchange/company_files.h"

#include <filesystem>

#include "capi/session.h"
#include "capi/table.h"

namespace {

using namespace ledgerwick;
using namespace ledgerwick::c;

std::unique_ptr<Table> counts(const std::vector<exchange::TableCount>& tables) {
    auto table = std::make_unique<Table>(std::vector<std::string>{"table", "rows"});
    for (const auto& each : tables) table->add({each.table, static_cast<std::int64_t>(each.rows)});
    return table;
}

}  // namespace

std::int32_t ledgerwick_import(ledgerwick_session* session, const char* folder,
                               ledgerwick_table** out, ledgerwick_error* error) {
    return call(error, [&] {
        constexpr std::string_view here = "ledgerwick_import";
        needHandle(out, here);
        Session& company = sessionIn(session);
        const std::string path = textIn(folder, here);
        if (!std::filesystem::is_directory(path)) raise(LEDGERWICK_NO_SUCH_FILE, here, path);
        try {
            giveHandle(out, counts(exchange::importCompany(company.database(), path)));
        } catch (const exchange::BadFiles& faults) {
            throw Error(LEDGERWICK_BAD_FILES, std::string(here), faults.what());
        }
        company.host().parameters().Reload();
        company.host().state().ReloadYearEnds();
    });
}

std::int32_t ledgerwick_export(ledgerwick_session* session, const char* folder,
                               ledgerwick_table** out, ledgerwick_error* error) {
    return call(error, [&] {
        constexpr std::string_view here = "ledgerwick_export";
        needHandle(out, here);
        Session& company = sessionIn(session);
        giveHandle(out, counts(exchange::exportCompany(company.database(), textIn(folder, here))));
    });
}
