#ifndef HOST_RECORDS_H
#define HOST_RECORDS_H

#include "host/account.h"
#include "host/category_records.h"
#include "host/connect_records.h"
#include "host/custom_records.h"
#include "host/data.h"
#include "host/futures_records.h"
#include "host/instrument.h"
#include "host/instrument_fee.h"
#include "host/stock_records.h"

#endif  // HOST_RECORDS_H
