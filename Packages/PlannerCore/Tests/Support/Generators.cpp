#include "Generators.h"
