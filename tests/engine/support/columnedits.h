#pragma once

#include "core/host/tu_timedvalue.h"

#include <memory>
#include <random>

/// One of all the commands that change the content of a column, by its kind, with numbers that are now and then
/// refused. Null now and then, where the column has nothing for it.
std::unique_ptr<CO_Command> randomEdit(TUTimedValue& column, std::mt19937& random);
