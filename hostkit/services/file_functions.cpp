#include "hostkit/services/file_functions.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace ledgerwick {

namespace {

std::string withoutSeparatorAtEnd(std::string path) {
    while (path.size() > 1 && (path.back() == '/' || path.back() == '\\')) path.pop_back();
    return path;
}

}  // namespace

KitFileFunctions::KitFileFunctions(std::string programPath)
    : programPath_(withoutSeparatorAtEnd(std::move(programPath))) {}

void KitFileFunctions::checkBackupDir(std::string_view folder) {
    std::error_code ignored;
    std::filesystem::create_directory(std::filesystem::path(programPath_) / folder, ignored);
}

KitApp::KitApp(std::string programPath)
    : programPath_(withoutSeparatorAtEnd(std::move(programPath))) {}

KitGlobal::KitGlobal(std::string programPath) : app_(std::move(programPath)) {}

}  // namespace ledgerwick
