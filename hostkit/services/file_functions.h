// The kit's file functions and the objects that give the program's folder.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "hostkit/export.h"
#include "ledgerwick/host/host.h"

namespace ledgerwick {

// The file functions of a host whose letter templates lie below one folder.
class LEDGERWICK_HOSTKIT_API KitFileFunctions : public FileFunctions {
  public:
    // Looks below `programPath`, a folder without a separator at its end.
    explicit KitFileFunctions(std::string programPath);

    // Makes the folder of that name under the program's folder, when it is not there and the
    // program's folder can be written.
    // Errors: none; a folder that cannot be made is found missing by whoever looks into it.
    void checkBackupDir(std::string_view folder) override;

  private:
    std::string programPath_;
};

// The program of a host, which is a folder to the library.
class LEDGERWICK_HOSTKIT_API KitApp : public HostApp {
  public:
    // `programPath` is a folder without a separator at its end.
    explicit KitApp(std::string programPath);
    std::string Path() override { return programPath_; }

  private:
    std::string programPath_;
};

// The global object, whose `App` is the one object that the library asks it for.
class LEDGERWICK_HOSTKIT_API KitGlobal : public HostGlobal {
  public:
    // An `App` with that program folder.
    explicit KitGlobal(std::string programPath);
    HostApp& App() override { return app_; }  // the object made at construction

  private:
    KitApp app_;
};

}  // namespace ledgerwick
