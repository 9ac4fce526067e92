#pragma once

/// Writes down that a test module was asked something; the test program provides it.
extern "C" void recordCall(const char* module, const char* call);
