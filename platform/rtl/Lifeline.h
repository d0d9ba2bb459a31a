#pragma once

namespace quorin {

// Lets an operation that calls out learn whether its object died meanwhile. The object has a
// lifeline as a member; the operation puts a watch on it before it calls out and asks afterwards.
// Watches are locals and nest.
class TLifeline {
public:
    class TWatch {
    public:
        explicit TWatch(TLifeline& line) : FLine(&line), FOuter(line.FInner) { Hold(line, this); }
        TWatch(const TWatch&) = delete;
        TWatch& operator=(const TWatch&) = delete;
        ~TWatch() {
            if (FLine != nullptr) FLine->FInner = FOuter;
        }
        bool IsAlive() const { return FLine != nullptr; }

    private:
        // The line forgets the watch before it goes. GCC 12 does not see that and warns of a
        // pointer to a local that stays.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdangling-pointer"
#endif
        static void Hold(TLifeline& line, TWatch* watch) {
            line.FInner = watch;
        }
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic pop
#endif

        friend class TLifeline;
        TLifeline* FLine; // null once the object is gone
        TWatch* FOuter;
    };

    TLifeline() = default;
    TLifeline(const TLifeline&) = delete;
    TLifeline& operator=(const TLifeline&) = delete;
    ~TLifeline() {
        for (TWatch* watch = FInner; watch != nullptr; watch = watch->FOuter) {
            watch->FLine = nullptr;
        }
    }

private:
    TWatch* FInner = nullptr;
};

} // namespace quorin
