#include "support/HostForm.h"

namespace pryvane::test {

bool isPosixForm()
{
    return PRYVANE_IS_POSIX_FORM;
}

} // namespace pryvane::test
