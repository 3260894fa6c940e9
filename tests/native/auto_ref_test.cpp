/// AutoRef: who keeps an object alive, and on which thread it ends.
#include <thread>

#include <gtest/gtest.h>

#include <zeph/binding/builtin_objects.h>
#include <zeph/platform/zpthreading/zpthreading.h>

namespace zeph::binding {
namespace {

/// Tells where and that it ended.
class Witness final : public Object {
 public:
  explicit Witness(std::thread::id* ended_on) : Object("test::Witness"), m_ended_on(ended_on) {}
  ~Witness() override { *m_ended_on = std::this_thread::get_id(); }

 private:
  std::thread::id* m_ended_on;
};

class AutoRefTest : public testing::Test {
 protected:
  void SetUp() override {
    zpthreading::ClaimScriptThread();
    zpthreading::zpThread<0>::Handle->run();
  }
  [[nodiscard]] bool ended() const { return ended_on != std::thread::id(); }

  std::thread::id ended_on;
};

TEST_F(AutoRefTest, LastOfSeveralReferencesEndsTheObjectAtOnce) {
  AutoRef<Object> first = new Witness(&ended_on);
  {
    const AutoRef<Object> second = first;  // NOLINT(performance-unnecessary-copy-initialization)
    first = nullptr;
    EXPECT_FALSE(first.alive());
    EXPECT_TRUE(second.alive());
    EXPECT_FALSE(ended());
  }
  EXPECT_EQ(ended_on, std::this_thread::get_id());
}

TEST_F(AutoRefTest, AssignmentOfItselfAndMovesKeepTheCount) {
  AutoRef<Object> first = new Witness(&ended_on);
  const AutoRef<Object>& same = first;
  first = same;
  AutoRef<Object> second = std::move(first);
  EXPECT_FALSE(first.alive());  // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(*second->StrongCount(), 1);
  second = second.get();
  EXPECT_EQ(*second->StrongCount(), 1);
  EXPECT_FALSE(ended());
}

TEST_F(AutoRefTest, ReferenceThatOutlivesItsObjectIsDead) {
  auto* object = new Witness(&ended_on);
  AutoRef<Object> reference = object;
  object->DeleteAutoRefObj();
  EXPECT_TRUE(ended());
  EXPECT_FALSE(reference.alive());
  const AutoRef<Object> copy = reference;
  EXPECT_EQ(copy.get(), nullptr);
}

TEST_F(AutoRefTest, LastReferenceOnAnotherThreadWaitsForTheQueue) {
  AutoRef<Object> reference = new Witness(&ended_on);
  const std::shared_ptr<int> count = reference->StrongCount();
  std::thread([moved = std::move(reference)]() mutable {
    EXPECT_EQ(zpthreading::GetThreadCategory(), 1U);
    moved = nullptr;
    EXPECT_EQ(zpthreading::zpThread<0>::Handle->run(), 0U) << "the queue runs on the script thread only";
  }).join();
  EXPECT_FALSE(ended());
  EXPECT_EQ(*count, 0);
  EXPECT_EQ(zpthreading::zpThread<0>::Handle->run(), 1U);
  EXPECT_EQ(ended_on, std::this_thread::get_id());
}

TEST_F(AutoRefTest, CommandsPostedByCommandsRunOnTheNextRound) {
  auto* queue = zpthreading::zpThread<0>::Handle;
  int rounds = 0;
  queue->post([&] {
    ++rounds;
    queue->post([&] { ++rounds; });
  });
  EXPECT_EQ(queue->run(), 1U);
  EXPECT_EQ(rounds, 1);
  EXPECT_EQ(queue->run(), 1U);
  EXPECT_EQ(rounds, 2);
}

}  // namespace
}  // namespace zeph::binding
