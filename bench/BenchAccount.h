#pragma once

namespace Quillane {
class Tarnwell;
}

namespace Bench {

/// The one account of the process, without a company; on the display when there is one.
Quillane::Tarnwell& account();

}  // namespace Bench
