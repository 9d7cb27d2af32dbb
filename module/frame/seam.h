#pragma once

/// The platform that the text tools are written against, in one place: nothing else under module/
/// includes its headers. A build against the vendor's own SDK replaces these lines and nothing
/// more.
