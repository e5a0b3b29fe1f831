// A mark that goes on every way out.

#pragma once

namespace orvik {

// Sets a flag as long as it lives.
class Mark {
 public:
    explicit Mark(bool& flag) : flag_(flag) { flag_ = true; }
    Mark(const Mark&) = delete;
    Mark& operator=(const Mark&) = delete;
    Mark(Mark&&) = delete;
    Mark& operator=(Mark&&) = delete;
    ~Mark() { flag_ = false; }

 private:
    bool& flag_;
};

}  // namespace orvik
