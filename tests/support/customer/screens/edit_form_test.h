#pragma once

#include "support/customer/data/customer_test.h"
#include "support/ui/form_test.h"

using EditFormTest = FormTest<OpenCustomerTest>;
