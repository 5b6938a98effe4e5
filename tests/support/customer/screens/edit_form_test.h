#pragma once

#include "support/customer/data/customer_test.h"
#include "support/records/screens/form_test.h"

using EditFormTest = FormTest<OpenCustomerTest>;
