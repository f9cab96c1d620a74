#include "ledgerwick/values/object.h"

namespace ledgerwick {

Object::~Object() = default;

}  // namespace ledgerwick
