# The mail half on a real Thunderbird: Python tests that start their own services.
function(kest_mail_endtoend name)
  add_test(NAME endtoend.${name}
    COMMAND /usr/bin/python3 ${CMAKE_CURRENT_SOURCE_DIR}/${name}.py -v)
  set_tests_properties(endtoend.${name} PROPERTIES LABELS endtoend TIMEOUT 240 RUN_SERIAL TRUE
    ENVIRONMENT "KEST_BUILD_DIR=${CMAKE_BINARY_DIR};KEST_SOURCE_DIR=${PROJECT_SOURCE_DIR};PYTHONDONTWRITEBYTECODE=1")
endfunction()

kest_mail_endtoend(mail_newmessage)
kest_mail_endtoend(mail_vocabulary)
kest_mail_endtoend(mail_replies)
kest_mail_endtoend(mail_html)
kest_mail_endtoend(mail_attachments)
kest_mail_endtoend(mail_losses)
kest_mail_endtoend(mail_install)

# Kest's own window beside it, answering what lies there.
foreach(name window_replies window_replies_sent window_replies_html)
  kest_mail_endtoend(${name})
  set_tests_properties(endtoend.${name} PROPERTIES TIMEOUT 600)
endforeach()

# What every mail application that serves org.kest.Mail1 must do, asked of the real one.
add_test(NAME endtoend.mailcontract_thunderbird
  COMMAND /usr/bin/python3 ${PROJECT_SOURCE_DIR}/tests/support/with_services.py --thunderbird
    -- $<TARGET_FILE:tst_mailcontract>)
set_tests_properties(endtoend.mailcontract_thunderbird PROPERTIES LABELS endtoend TIMEOUT 180 RUN_SERIAL TRUE
  FAIL_REGULAR_EXPRESSION ${KEST_SKIPPED}
  ENVIRONMENT "KEST_BUILD_DIR=${CMAKE_BINARY_DIR};KEST_SOURCE_DIR=${PROJECT_SOURCE_DIR}")
