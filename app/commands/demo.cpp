// The whole road of a pay run on the sample company, shown step by step.
#include <filesystem>
#include <memory>
#include <ostream>

#include "app/commands/autoenrol.h"
#include "app/commands/commands.h"
#include "app/commands/pay_run.h"
#include "app/options.h"
#include "hostkit/exchange/company_files.h"

namespace ledgerwick::app {

namespace {

constexpr std::size_t rowsShown = 8;

struct DemoOptions {
    std::string company;
    std::string database;
};

// The day on which the sample company stands in the middle of its work.
Date demoDay() {
    return Date::fromYmd(2026, 1, 30);
}

// The sample company beside the installed program, else where the program was to be installed, else
// in the source tree it was built from.
std::string sampleCompany() {
    std::error_code unknown;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", unknown);
    const auto beside = program.parent_path().parent_path() / LEDGERWICK_COMPANY_INSTALLED;
    for (const auto& folder : {beside, std::filesystem::path(LEDGERWICK_COMPANY_PLACE)}) {
        if (folder.is_absolute() && std::filesystem::exists(folder, unknown)) {
            return folder.string();
        }
    }
    return LEDGERWICK_COMPANY_SOURCE;
}

// A folder of its own that is gone at the end.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        auto pattern = (std::filesystem::temp_directory_path() / "ledgerwick-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("cannot make a folder in " +
                                     std::filesystem::temp_directory_path().string());
        }
        path_ = pattern;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const noexcept { return path_; }

  private:
    std::filesystem::path path_;
};

class Demo {
  public:
    Demo(const Context& context, std::string company)
        : context_(context), company_(std::move(company)) {}

    void run(const std::string& databasePath) {
        context_.out << "Ledgerwick takes a sample company through a pay run. Today is "
                     << context_.today().toIso() << ".\n";
        importSample(databasePath);
        session_ = openCompany(context_, databasePath, company_);
        tellLoad();
        payRun();
        tellStatus();
        tellLetter();
        fill();
    }

  private:
    void step(const std::string& what) { context_.out << "\n" << ++step_ << ". " << what << "\n"; }

    void show(Report report) {
        report.showRows(rowsShown);
        report.print(context_.out, Format::Text);
    }

    void importSample(const std::string& databasePath) {
        step("Import the company from CSV files into a fresh database");
        const auto database = exchange::openOrCreate(databasePath);
        std::int64_t rows = 0;
        const auto counts = exchange::importCompany(*database, company_);
        for (const exchange::TableCount& count : counts)
            rows += static_cast<std::int64_t>(count.rows);
        context_.out << counted(rows, "row") << " in "
                     << counted(static_cast<std::int64_t>(counts.size()), "table") << "\n";
    }

    void tellLoad() {
        step("Load every employee, with two years of pay rows folded into the employments");
        std::int64_t employments = 0;
        for (const auto& employee : session_->list().Employees()) {
            employments += employee->Employments().Count();
        }
        auto& payroll = session_->payroll();
        context_.out << counted(session_->list().EmployeeCount(), "employee") << " with "
                     << counted(employments, "employment") << "; at work are "
                     << payroll.C_Count_Employees(PR_ET_Regular) << " regular and "
                     << payroll.C_Count_Employees(PR_ET_Casual) << " casual\n";
    }

    void payRun() {
        selection_.payDate = session_->payroll().C_Next_Expected_Pay_Date();
        step("See what falls due next");
        show(whatIsDue(*session_, selection_.payDate));

        step("Open the run: a pay record for each period due, with imported pay and piecework");
        const std::int32_t before = payRows();
        show(openStep(*session_, selection_));
        const std::int32_t opened = payRows();
        context_.out << counted(opened - before, "pay record") << " added\n";

        step("Open it again: the same records are found and none is added");
        openStep(*session_, selection_);
        context_.out << counted(payRows() - opened, "pay record") << " added\n";

        step("Close the run; each employee is loaded again and the dates have moved on");
        show(closeStep(*session_, selection_));
    }

    void tellStatus() {
        step("Show where the workers stand in pension auto-enrolment");
        show(autoEnrolStatus(*session_, context_.today(), DLLGlobal::currentPayrollYear()));
    }

    void tellLetter() {
        step("Write a letter to the worker whose enrolment is postponed");
        for (const auto& worker : recipients(*session_, PR_AELT_POSTPONEMENT)) {
            context_.out << letterTo(*session_, *worker, PR_AELT_POSTPONEMENT);
        }
    }

    void fill() {
        step("Fill the periods that were skipped in this year");
        show(fillGaps(*session_));
    }

    std::int32_t payRows() {
        const auto rows =
            session_->database().OpenRecordset("SELECT PRPID FROM PRPay", RecordsetType::Dynaset);
        const std::int32_t count = rows->RecordCount();
        rows->Close();
        return count;
    }

    const Context& context_;
    std::string company_;
    Selection selection_;
    std::unique_ptr<HostSession> session_;
    int step_ = 0;
};

void runDemo(Context& context, const DemoOptions& options) {
    if (!context.fixedToday) context.fixedToday = demoDay();
    const std::string company = options.company.empty() ? sampleCompany() : options.company;
    if (!options.database.empty()) {
        if (std::filesystem::exists(options.database)) {
            throw Refusal(options.database + " is there already");
        }
        return Demo(context, company).run(options.database);
    }
    const TemporaryFolder folder;
    Demo(context, company).run((folder.path() / "company.db").string());
}

}  // namespace

void addDemoCommand(CLI::App& app, Context& context) {
    const auto options = std::make_shared<DemoOptions>();
    auto* demo = app.add_subcommand("demo", "Take a sample company through a whole pay run");
    demo->add_option("--company", options->company, "The folder of another company's CSV files")
        ->check(CLI::ExistingDirectory);
    demo->add_option("--database", options->database, "Keep the database in this file");
    demo->callback([&context, options] {
        context.action = [&context, options] { runDemo(context, *options); };
    });
}

}  // namespace ledgerwick::app
