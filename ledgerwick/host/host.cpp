#include "ledgerwick/host/host.h"

#include <iostream>

#include "ledgerwick/values/error.h"

namespace ledgerwick {
namespace {

[[noreturn]] void missing(std::string_view member) {
    raise(error_number::noSuchMember, member);
}

}  // namespace

void CustomerFunctions::SplitContactName(const std::string&, std::string&, std::string&,
                                         std::string&, std::string&, std::string&, std::int32_t&) {
    missing("SplitContactName");
}

Database& HostState::DBDll() {
    missing("DBDll");
}
Recordset& HostState::g_rsPRControl() {
    missing("g_rsPRControl");
}
const Dictionary<std::int32_t, Date>& HostState::g_dicPRYears() {
    missing("g_dicPRYears");
}
Date HostState::g_dtmToday() {
    missing("g_dtmToday");
}
std::int16_t HostState::g_iAEPRPStartDay() {
    missing("g_iAEPRPStartDay");
}
std::string HostState::g_strPCID() {
    missing("g_strPCID");
}
std::string HostState::g_strProgName() {
    missing("g_strProgName");
}
std::string HostState::strCurFormat() {
    missing("strCurFormat");
}
bool HostState::g_blnPRSchUp() {
    missing("g_blnPRSchUp");
}
void HostState::g_blnPRSchUp(bool) {
    missing("g_blnPRSchUp");
}
CustomerFunctions& HostState::C_customerFunctions() {
    missing("C_customerFunctions");
}

void HostState::ShowCriticalMessage(const std::string& caption, const std::string& text) {
    std::cerr << caption << ": " << text << std::endl;
}

std::string ProgramFunctions::DateToUSstr(Date) {
    missing("DateToUSstr");
}
Variant ProgramFunctions::GetParameterField(std::string_view) {
    missing("GetParameterField");
}
std::int16_t ProgramFunctions::DaysInMonth(Date) {
    missing("DaysInMonth");
}
void ProgramFunctions::DeleteFromArray(VariantArray&, const Variant&) {
    missing("DeleteFromArray");
}
void ProgramFunctions::BubbleSortLongArray(std::vector<std::int32_t>&) {
    missing("BubbleSortLongArray");
}
std::string ProgramFunctions::padstring(std::string_view, std::int32_t, char) {
    missing("padstring");
}

void FileFunctions::checkBackupDir(std::string_view) {
    missing("checkBackupDir");
}

std::string HostApp::Path() {
    missing("Path");
}
HostApp& HostGlobal::App() {
    missing("App");
}

bool DataAccess::TempTableExists(std::string_view) {
    missing("TempTableExists");
}
void DataAccess::NoNullRecordLine(RecordsetRef&) {
    missing("NoNullRecordLine");
}

}  // namespace ledgerwick
