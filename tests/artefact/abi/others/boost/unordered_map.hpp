#include "others.h"
