#include "app/options.h"

namespace ledgerwick::app {

CLI::Option* addDatabase(CLI::App& command, std::string& path) {
    return command.add_option("DB", path, "The database file of the company")->required();
}

CLI::Option* addDate(CLI::App& command, const std::string& name, Date& date,
                     const std::string& help) {
    const auto read = [&date](const std::string& text) {
        if (!parseDate(text, date)) {
            throw CLI::ValidationError("\"" + text + "\" is not a date (YYYY-MM-DD)");
        }
    };
    return command.add_option_function<std::string>(name, read, help)->type_name("DATE");
}

CLI::Option* addFrequency(CLI::App& command, PR_Pay_Freq& frequency, const std::string& help) {
    const auto read = [&frequency](const std::string& name) {
        const auto found = frequencyOf(name);
        if (!found)
            throw CLI::ValidationError("\"" + name + "\" is not one of " + frequencyNames());
        frequency = *found;
    };
    return command
        .add_option_function<std::string>("--frequency", read, help + ": " + frequencyNames())
        ->type_name("NAME");
}

}  // namespace ledgerwick::app
