// Filling the references of dll_global.h. Only `Identify` does that.
#pragma once

#include "ledgerwick/values/object.h"

namespace ledgerwick::DLLGlobal {

// Each replaces what the reference of this thread held; a null pointer clears it.
void holdCallerGlobal(ObjectRef object);
void holdG(ObjectRef object);
void holdFp(ObjectRef object);
void holdDAO_ADO(ObjectRef object);
void holdARFuncs(ObjectRef object);
void holdPf(ObjectRef object);
void holdEmployeeList(ObjectRef object);

}  // namespace ledgerwick::DLLGlobal
