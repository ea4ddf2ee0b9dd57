# The mail half on a real Thunderbird: Python tests that start their own services.
function(kest_mail_endtoend name)
  add_test(NAME endtoend.${name}
    COMMAND /usr/bin/python3 ${CMAKE_CURRENT_SOURCE_DIR}/${name}.py -v)
  set_tests_properties(endtoend.${name} PROPERTIES LABELS endtoend TIMEOUT 240
    ENVIRONMENT "KEST_BUILD_DIR=${CMAKE_BINARY_DIR};KEST_SOURCE_DIR=${PROJECT_SOURCE_DIR};PYTHONDONTWRITEBYTECODE=1")
endfunction()

kest_mail_endtoend(mail_newmessage)
kest_mail_endtoend(mail_vocabulary)
kest_mail_endtoend(mail_replies)
kest_mail_endtoend(mail_html)
kest_mail_endtoend(mail_attachments)
kest_mail_endtoend(mail_losses)
