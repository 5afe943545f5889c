#pragma once

namespace zn {

/// One level of a conversion that calls itself for what is nested. Throws
/// `NSInvalidArgumentException` at a depth that only a circle reaches, rather than overflow the
/// stack.
class Nesting {
public:
    Nesting();
    ~Nesting();
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;
};

}  // namespace zn
