#pragma once

/// Marks what the host process provides: visible there, and found there by a module that hides everything of its own.
#define QUILLANE_HOST_API __attribute__((visibility("default")))
