#ifndef HOST_SERVICES_H
#define HOST_SERVICES_H

#include "host/catalogue.h"
#include "host/categories.h"
#include "host/configuration.h"
#include "host/engine.h"
#include "host/keys.h"
#include "host/singleton.h"

#endif  // HOST_SERVICES_H
