// What a host includes, all of it.
#include "CFeeCenter.h"
#include "IFeeCenter.h"
#include "conformance/conformance.h"
#include "host/record_fields.h"
#include "host/records.h"
#include "host/services.h"
