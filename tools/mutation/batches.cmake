# The tests do not change, so they are built in few compiler runs; the core stays file by file.
cmake_language(DEFER CALL set_target_properties tavrel_unit_tests PROPERTIES
  UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 12)
