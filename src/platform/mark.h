#pragma once

namespace nv
{

// Sets a flag for the life of the object.
class Mark
{
public:
    explicit Mark(bool& flag) : flag_(flag) { flag_ = true; }
    ~Mark() { flag_ = false; }
    Mark(const Mark&) = delete;
    Mark& operator=(const Mark&) = delete;

private:
    bool& flag_;
};

} // namespace nv
