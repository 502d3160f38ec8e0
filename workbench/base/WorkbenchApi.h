#pragma once

#include <QtGlobal>

/// Marks what the library workbenchHost offers to the workbench's program and to tests.
#ifndef WORKBENCH_API
#define WORKBENCH_API Q_DECL_IMPORT
#endif
