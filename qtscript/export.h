#pragma once

#define QTSCRIPT_EXPORT __attribute__((visibility("default")))
