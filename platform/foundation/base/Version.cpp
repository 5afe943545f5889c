#include "zarnic/Version.h"

const double ZarnicVersionNumber = ZARNIC_VERSION_NUMBER;
const char ZarnicVersionString[] = ZARNIC_VERSION_STRING;
